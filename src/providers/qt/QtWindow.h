#pragma once

#include <QWidget>

#include "platform/Controls.h"

namespace touchpanel {

class QtWindow final : public Window {
 public:
  explicit QtWindow(QWidget& widget) : widget_(widget) {}
  /// Desktops here keep a program's windows when another one is used, so only `false` has a meaning.
  void setHidesOnDeactivate(bool /*hides*/) override {}
  void orderOut() override { widget_.hide(); }
  QWidget& widget() { return widget_; }

 private:
  QWidget& widget_;
};

}  // namespace touchpanel
