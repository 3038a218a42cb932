#pragma once

#include <cstdint>

#include "calibration/CalibrationRun.h"
#include "platform/Canvas.h"

namespace touchpanel {

/// Draws a run in a box of a given size, and handles its buttons. Buttons are performed by the redraw after the
/// mouse-up, so drawing can end the run.
class CalibrationScreen {
 public:
  explicit CalibrationScreen(CalibrationRun& run) : run_(run) {}

  /// A mouse-down. Holds the button under it once the grid is finished.
  void press(const Point& location, const Size& box);
  /// A mouse-up: a touch while targets are shown, else what the next redraw performs.
  void release(const Point& location);
  /// Draws everything in front of the background, and performs what is due: noting where the target lies,
  /// trying the finished grid, the button that was released.
  void draw(Canvas& canvas, const Size& box);

 private:
  bool drawTarget(Canvas& canvas, const Size& box);
  void drawFinished(Canvas& canvas, const Size& box, std::uint8_t held);
  bool perform(std::uint8_t button);

  CalibrationRun& run_;
  Point center;                ///< the last mouse-up
  std::uint8_t ucBtnFlag = 0;  ///< the button held down; see calibration_button
};

}  // namespace touchpanel
