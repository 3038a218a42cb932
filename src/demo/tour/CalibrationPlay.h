#pragma once

#include <QColor>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <optional>
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
  /// `bounced`, if any, is touched where the target before it lies.
  void touchAllTargets(std::optional<int> bounced = {});
  /// Touches the ring around `target`, the only one, and takes its touch again.
  void takeAgain(int target);
  /// Holds OK, lets go of it and waits until the window has gone.
  void pressOk();

 private:
  const CalibrationRun& run() const;
  /// Touches the target shown, `index`, where target `place` lies.
  void touchTarget(int index, int place);
  QPoint targetPoint(int index) const;
  QColor drawnAt(QPoint place) const;
  void takePicture(const std::string& state);

  Stage& stage_;
  std::string prefix_;
  QPointer<ViewSurface> surface_;
  QRect box_;  ///< where targets and buttons are, in pixels of the window
};

}  // namespace touchpanel::demo
