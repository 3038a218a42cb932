#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace touchpanel {

/// Anything that the user can be kept from using.
class Control {
 public:
  virtual ~Control() = default;
  virtual void setEnabled(bool enabled) = 0;
  virtual bool isEnabled() const = 0;
};

class Button : public Control {
 public:
  virtual void setTitle(std::string_view title) = 0;
};

class CheckBox : public Control {
 public:
  virtual void setOn(bool on) = 0;
  virtual bool isOn() const = 0;
};

/// A group of choices of which one is selected; rows count from 0.
class RadioGroup : public Control {
 public:
  /// Selects `row`; a row that the group does not have leaves nothing selected but is answered by
  /// selectedRow().
  virtual void selectRow(std::int32_t row) = 0;
  virtual std::int32_t selectedRow() const = 0;
};

class IntegerControl : public Control {
 public:
  /// Shows `value`, clamped to the control's range for display only: integerValue() answers what was set
  /// until the user changes it.
  virtual void setIntegerValue(std::int32_t value) = 0;
  virtual std::int32_t integerValue() const = 0;
};

class TextField {
 public:
  virtual ~TextField() = default;
  virtual void setText(std::string_view text) = 0;
};

/// What a table shows; asked again for everything after each reload.
class TableSource {
 public:
  virtual ~TableSource() = default;
  virtual std::int32_t numberOfRows() = 0;
  /// Text of one cell; `columnIdentifier` is the device entry key that the column is bound to.
  virtual std::string objectValue(std::string_view columnIdentifier, std::int32_t row) = 0;
  virtual bool shouldSelectRow(std::int32_t row) = 0;
  virtual bool shouldSelectColumn(std::int32_t column) = 0;
};

class Table : public Control {
 public:
  /// Asks the source for everything again, soon or at once. The highlight stays on its row while that row
  /// exists.
  virtual void reloadData() = 0;
  /// Moves the highlight without asking the source.
  virtual void selectRow(std::int32_t row) = 0;
};

class Window {
 public:
  virtual ~Window() = default;
  virtual void setHidesOnDeactivate(bool hides) = 0;
  virtual void orderOut() = 0;
};

/// Sheets: windows that belong to another one and keep it from being used.
class Sheets {
 public:
  virtual ~Sheets() = default;
  virtual void begin(Window& sheet, Window& parent) = 0;
  virtual void end(Window& sheet, int returnCode) = 0;
};

}  // namespace touchpanel
