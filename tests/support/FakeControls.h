#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/StatusLine.h"

namespace touchpanel::testing {

template <typename Port>
struct FakeControl : Port {
  void setEnabled(bool value) override { enabled = value; }
  bool isEnabled() const override { return enabled; }

  bool enabled = true;
};

struct FakeButton final : FakeControl<Button> {
  void setTitle(std::string_view text) override { title = text; }

  std::string title;
};

struct FakeCheckBox final : FakeControl<CheckBox> {
  void setOn(bool value) override { on = value; }
  bool isOn() const override { return on; }

  bool on = false;
};

struct FakeRadioGroup final : FakeControl<RadioGroup> {
  void selectRow(std::int32_t value) override { row = value; }
  std::int32_t selectedRow() const override { return row; }

  std::int32_t row = 0;
};

struct FakeIntegerControl final : FakeControl<IntegerControl> {
  void setIntegerValue(std::int32_t newValue) override { value = newValue; }
  std::int32_t integerValue() const override { return value; }

  std::int32_t value = 0;
};

struct FakeTextField final : TextField {
  void setText(std::string_view value) override { text = value; }

  std::string text;
};

struct FakeTable final : FakeControl<Table> {
  void reloadData() override { ++reloads; }
  void selectRow(std::int32_t row) override { highlighted = row; }

  int reloads = 0;
  std::optional<std::int32_t> highlighted;
};

struct FakeWindow final : Window {
  void setHidesOnDeactivate(bool value) override { hidesOnDeactivate = value; }
  void orderOut() override { isOut = true; }

  bool hidesOnDeactivate = true;
  bool isOut = false;
};

/// The kinds of controls that an interface is made of.
struct FakeKit {
  using Table = FakeTable;
  using Button = FakeButton;
  using TextField = FakeTextField;
  using RadioGroup = FakeRadioGroup;
  using IntegerControl = FakeIntegerControl;
  using CheckBox = FakeCheckBox;
  using Window = FakeWindow;
};

struct RecordingStatusLine final : StatusLine {
  void show(const StatusMessage& message) override { messages.push_back(message); }

  std::vector<StatusMessage> messages;
};

/// Sheets that remember which one is up.
struct FakeSheets final : Sheets {
  void begin(Window& sheet, Window& onWindow) override {
    open = &sheet;
    parent = &onWindow;
  }
  void end(Window& sheet, int code) override {
    if (open == &sheet) open = nullptr;
    returnCode = code;
  }

  Window* open = nullptr;
  Window* parent = nullptr;
  std::optional<int> returnCode;
};

}  // namespace touchpanel::testing
