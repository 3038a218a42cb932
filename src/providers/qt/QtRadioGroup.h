#pragma once

#include <QButtonGroup>
#include <functional>

#include "providers/qt/QtControl.h"

namespace touchpanel {

/// The radio buttons inside one widget, rows in the order in which they were made.
class QtRadioGroup final : public QtControl<RadioGroup> {
 public:
  explicit QtRadioGroup(QWidget& container);

  void selectRow(std::int32_t row) override;
  std::int32_t selectedRow() const override { return row_; }
  /// Calls `action` for each choice by the user.
  void onEdited(std::function<void()> action) { edited_ = std::move(action); }

 private:
  QButtonGroup buttons_;
  std::int32_t row_ = 0;
  std::function<void()> edited_;
};

}  // namespace touchpanel
