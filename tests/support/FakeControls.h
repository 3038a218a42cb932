#pragma once

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "platform/Controls.h"

namespace touchpanel::testing {

class FakeButton final : public Button {
 public:
  void setEnabled(bool on) override { enabled = on; }
  bool isEnabled() const override { return enabled; }
  void setTitle(std::string_view text) override { title = text; }

  bool enabled = true;
  std::string title;
};

class FakeCheckBox final : public CheckBox {
 public:
  void setEnabled(bool value) override { enabled = value; }
  bool isEnabled() const override { return enabled; }
  void setOn(bool value) override { on = value; }
  bool isOn() const override { return on; }

  bool enabled = true;
  bool on = false;
};

class FakeRadioGroup final : public RadioGroup {
 public:
  void setEnabled(bool value) override { enabled = value; }
  bool isEnabled() const override { return enabled; }
  void selectRow(std::int32_t value) override { row = value; }
  std::int32_t selectedRow() const override { return row; }

  bool enabled = true;
  std::int32_t row = 0;
};

/// An integer control whose shown() is what a user would read.
class FakeIntegerControl final : public IntegerControl {
 public:
  void setEnabled(bool isUsable) override { enabled = isUsable; }
  bool isEnabled() const override { return enabled; }
  void setIntegerValue(std::int32_t newValue) override { value = newValue; }
  std::int32_t integerValue() const override { return value; }

  std::int32_t shown() const { return std::clamp(value, minimum, maximum); }

  bool enabled = true;
  std::int32_t value = 0;
  std::int32_t minimum = 0;
  std::int32_t maximum = std::numeric_limits<std::int32_t>::max();
};

class FakeTextField final : public TextField {
 public:
  void setText(std::string_view value) override { text = value; }

  std::string text;
};

class FakeTable final : public Table {
 public:
  void setEnabled(bool value) override { enabled = value; }
  bool isEnabled() const override { return enabled; }
  void reloadData() override { ++reloads; }
  void selectRow(std::int32_t row) override { highlighted = row; }

  bool enabled = true;
  int reloads = 0;
  std::optional<std::int32_t> highlighted;
};

class FakeWindow final : public Window {
 public:
  void setHidesOnDeactivate(bool value) override { hidesOnDeactivate = value; }
  void orderOut() override { isOut = true; }

  bool hidesOnDeactivate = true;
  bool isOut = false;
};

/// Sheets that remember which one is up.
class FakeSheets final : public Sheets {
 public:
  void begin(Window& sheet, Window& onWindow) override {
    open = &sheet;
    parent = &onWindow;
    ++begun;
  }
  void end(Window& sheet, int code) override {
    if (open == &sheet) open = nullptr;
    returnCode = code;
  }

  Window* open = nullptr;
  Window* parent = nullptr;
  int begun = 0;
  std::optional<int> returnCode;
};

}  // namespace touchpanel::testing
