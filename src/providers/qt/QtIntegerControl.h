#pragma once

#include <functional>

#include "providers/qt/IntegerField.h"
#include "providers/qt/QtControl.h"

namespace touchpanel {

/// Keeps a value outside the field's range until the user chooses another: showing a stored value must not
/// change it.
class QtIntegerControl final : public QtControl<IntegerControl> {
 public:
  explicit QtIntegerControl(IntegerField& field) : QtControl(field), field_(field) {
    field_.onEdited = [this](int value) {
      value_ = value;
      if (edited_) edited_();
    };
  }

  void setIntegerValue(std::int32_t value) override {
    value_ = value;
    field_.show(value);
  }
  std::int32_t integerValue() const override { return value_; }
  /// Calls `action` for each change by the user.
  void onEdited(std::function<void()> action) { edited_ = std::move(action); }

 private:
  IntegerField& field_;
  std::int32_t value_ = 0;
  std::function<void()> edited_;
};

}  // namespace touchpanel
