#pragma once

#include <QCheckBox>
#include <functional>

#include "providers/qt/QtControl.h"

namespace touchpanel {

class QtCheckBox final : public QtControl<CheckBox> {
 public:
  explicit QtCheckBox(QCheckBox& box) : QtControl(box), box_(box) {}

  void setOn(bool on) override { box_.setChecked(on); }
  bool isOn() const override { return box_.isChecked(); }
  /// Calls `action` for each change by the user.
  void onEdited(std::function<void()> action) {
    QObject::connect(&box_, &QCheckBox::clicked, &box_, [action = std::move(action)] { action(); });
  }

 private:
  QCheckBox& box_;
};

}  // namespace touchpanel
