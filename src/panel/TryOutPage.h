#pragma once

#include "panel/MainWindowWidget.h"
#include "panel/TryOutReport.h"
#include "panel/TryOutTouches.h"
#include "providers/qt/QtControls.h"

namespace touchpanel {

/// The page of the main window on which a user tries out where touches land. It reads pointer input only and
/// changes nothing, neither in a touchscreen nor in its driver.
class TryOutPage {
 public:
  /// `window` is not owned and must outlive this.
  explicit TryOutPage(MainWindowWidget& window);

  const TryOut& tryOut() const { return touches_.tryOut(); }
  /// What is to be printed now.
  TryOutReport report() const;

 private:
  void askForPrinter();
  void show();
  QString screenText() const;

  MainWindowWidget& window_;
  QtButton clear_;
  QtButton print_;
  TryOutTouches touches_;
};

}  // namespace touchpanel
