#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

#include "platform/Controls.h"
#include "providers/qt/BuddyLabel.h"

namespace touchpanel {

/// The part that all controls share: `Port` is the port's type. While disabled, a widget that carries the
/// dynamic property "disabledReason" tells it as its tool tip and to assistive technology.
template <typename Port>
class QtControl : public Port {
 public:
  explicit QtControl(QWidget& widget)
      : widget_(widget), label_(buddyLabelOf(widget)), toolTip_(widget.toolTip()) {
    explain();
  }

  void setEnabled(bool enabled) override {
    widget_.setEnabled(enabled);
    if (label_ != nullptr) label_->setEnabled(enabled);
    explain();
  }
  bool isEnabled() const override { return !isDisabled(); }

 private:
  bool isDisabled() const { return widget_.testAttribute(Qt::WA_ForceDisabled); }
  void explain() {
    const QString reason = widget_.property("disabledReason").toString();
    const bool tells = isDisabled() && !reason.isEmpty();
    widget_.setToolTip(tells ? reason : toolTip_);
    widget_.setAccessibleDescription(tells ? reason : QString());
    if (label_ != nullptr) label_->setToolTip(widget_.toolTip());
  }

  QWidget& widget_;
  QLabel* label_;
  QString toolTip_;
};

}  // namespace touchpanel
