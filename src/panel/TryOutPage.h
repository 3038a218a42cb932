#pragma once

#include <QPointF>

#include "app/TryOut.h"
#include "panel/MainWindowWidget.h"
#include "panel/TryOutReport.h"
#include "providers/qt/QtControls.h"

namespace touchpanel {

/// The page of the main window on which a user tries out where touches land. It reads pointer input only and
/// changes nothing, neither in a touchscreen nor in its driver.
class TryOutPage {
 public:
  /// `window` is not owned and must outlive this.
  explicit TryOutPage(MainWindowWidget& window);
  ~TryOutPage();
  TryOutPage(const TryOutPage&) = delete;
  TryOutPage& operator=(const TryOutPage&) = delete;

  const TryOut& tryOut() const { return tryOut_; }
  /// What is to be printed now.
  TryOutReport report() const;

 private:
  /// Lays the test points out anew if the surface or its screen has changed.
  void place();
  void startOver();
  void askForPrinter();
  void show();
  void showInstruction();
  TryOutPicture picture() const;
  QString screenText() const;

  MainWindowWidget& window_;
  QtButton clear_;
  QtButton print_;
  TryOut tryOut_;
};

}  // namespace touchpanel
