#pragma once

#include "calibration/CalibrationRun.h"
#include "calibration/CalibrationScreen.h"
#include "platform/View.h"

namespace touchpanel {

/// The full-screen view for calibrating in a box of the user's choice: a rectangle is dragged out first, and
/// its size is that of the box. The box itself lies at the view's lower-left corner.
///
/// | state        | entered by             | leaves on                                                     |
/// |--------------|------------------------|---------------------------------------------------------------|
/// | choosing     | setCalibrateDict()     | first mouse-up: collecting 0, and it is read as a touch;      |
/// |              |                        | Return: solved, closed; Escape: cancelled; time-out: closed   |
/// | collecting i | mouse-up, ReCalibrate  | touch of target i: collecting i + 1, finished after the last; |
/// |              |                        | Return: solved from what there is, closed;                    |
/// |              |                        | Escape: cancelled; time-out: closed                           |
/// | finished     | redraw after last touch| ReCalibrate: collecting 0; OK: committed;                     |
/// |              |                        | Cancel, Escape: cancelled;                                    |
/// |              |                        | time-out: closed, the trial stays in the driver               |
/// | button held  | mouse-down on a button | mouse-up: finished, and the button under it performed         |
/// | committed    | OK                     | at once: closed                                               |
/// | cancelled    | Cancel, Escape         | at once: closed                                               |
/// | closed       | exit()                 | never                                                         |
///
/// A device that is unplugged goes unnoticed until the run ends in one of these ways. A drag changes the size
/// of the box at any time, that of a running grid too.
class RegionCalibration final : public View {
 public:
  /// `frame` is the area of the screen that the view fills.
  RegionCalibration(const Rect& frame, const CalibrationPorts& ports);

  /// The window that shows the view, closed with the run; not owned. To be set before the run starts.
  void setWindow(ViewWindow& window) { run_.setWindow(window); }
  /// Starts the run on `entry`; called once, right after the view was put on screen.
  void setCalibrateDict(DeviceEntry entry, TableReloader& controller);

  void drawRect(Canvas& canvas) override;
  void mouseDown(Point location) override;
  void mouseDragged(Point location) override;
  void mouseUp(Point location) override;
  void mouseMoved(Point location) override;
  void keyDown(std::uint16_t keyCode) override;
  bool acceptsFirstResponder() const override { return true; }
  bool isOpaque() const override { return false; }

  const CalibrationRun& run() const { return run_; }
  /// The rectangle has not been chosen yet.
  bool isChoosing() const { return !bDraw; }

 private:
  void timerCallBack();
  void drawChoice(Canvas& canvas) const;
  Size box() const { return {fDspWidth, fDspHeight}; }

  Point firstPoint;  ///< the last mouse-down
  Point endPoint;    ///< the last point dragged to that lay inside; recorded only
  Point newPoint;    ///< lower-left corner of the dragged rectangle
  Size newSize;      ///< its size; negative after a drag to the left or upwards
  float frameWidth;  ///< the view's own size
  float frameHeight;
  CalibrationRun run_;
  CalibrationScreen screen_;
  float fDspWidth;  ///< the box: the view until the first redraw, the dragged rectangle from then on
  float fDspHeight;
  bool bDraw = false;  ///< the rectangle was chosen
};

}  // namespace touchpanel
