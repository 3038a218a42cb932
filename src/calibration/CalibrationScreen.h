#pragma once

#include <cstdint>
#include <optional>

#include "calibration/CalibrationAdditions.h"
#include "calibration/CalibrationRun.h"
#include "platform/Canvas.h"

namespace touchpanel {

/// Draws a run in a box of a given size, and handles its buttons. Buttons are performed by the redraw after the
/// mouse-up, so drawing can end the run.
class CalibrationScreen {
 public:
  /// `screen` is the size of the view that shows the run.
  CalibrationScreen(CalibrationRun& run, const Size& screen);

  /// A mouse-down. Holds the button under it once the grid is finished.
  void press(const Point& location, const Size& box);
  /// The pointer moved with no button held.
  void point(const Point& location, const Size& box);
  /// A mouse-up: a touch while targets are shown, else what the next redraw performs.
  void release(const Point& location);
  /// Draws everything in front of the background, and performs what is due: noting where the target lies,
  /// trying the finished grid, the button that was released.
  void draw(Canvas& canvas, const Size& box);
  /// While a region's rectangle is dragged out: what is shown beside it.
  void drawBesideChoice(Canvas& canvas, const Rect& chosen) const;

 private:
  /// Targets, note, number and buttons. False when it performed a button, whose picture is yet to be drawn.
  bool drawRun(Canvas& canvas, const Size& box);
  bool drawTarget(Canvas& canvas, const Size& box);
  void drawFinished(Canvas& canvas, const Size& box, std::uint8_t held);
  bool perform(std::uint8_t button);

  CalibrationRun& run_;
  std::optional<CalibrationAdditions> additions_;
  Point center;                ///< the last mouse-up
  std::uint8_t ucBtnFlag = 0;  ///< the button held down; see calibration_button
};

}  // namespace touchpanel
