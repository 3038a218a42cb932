#pragma once

#include <QColor>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <string>

#include "calibration/CalibrationRun.h"
#include "demo/tour/Stage.h"
#include "providers/qt/ViewSurface.h"

namespace touchpanel::demo {

/// The user's part in one full-screen calibration. Pictures are named after `prefix`.
class CalibrationPlay {
 public:
  CalibrationPlay(Stage& stage, std::string prefix) : stage_(stage), prefix_(std::move(prefix)) {}

  /// Clicks `button` and waits for the full-screen window.
  void open(const char* button);
  /// Drags out a region, `share` of the screen on both axes.
  void chooseRegion(double share);
  /// Touches the middle of each target as it comes up, until the buttons are shown.
  void touchAllTargets();
  /// Holds OK, lets go of it and waits until the window has gone.
  void pressOk();

 private:
  const CalibrationRun& run() const;
  void touchTarget(int index);
  QColor drawnAt(QPoint place) const;
  void takePicture(const std::string& state);

  Stage& stage_;
  std::string prefix_;
  QPointer<ViewSurface> surface_;
  QRect box_;  ///< where targets and buttons are, in pixels of the window
};

}  // namespace touchpanel::demo
