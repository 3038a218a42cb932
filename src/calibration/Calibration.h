#pragma once

#include "calibration/CalibrationRun.h"
#include "calibration/CalibrationScreen.h"
#include "platform/View.h"

namespace touchpanel {

/// The full-screen view that leads the user through the calibration of one touchscreen, in 4 or 25 targets as
/// the device entry's "CalibrateMode" says. Created for one run; hides the mouse cursor from creation until
/// the grid is finished.
///
/// | state        | entered by                       | leaves on                                           |
/// |--------------|----------------------------------|-----------------------------------------------------|
/// | collecting i | setCalibrateDict(), ReCalibrate  | touch of target i: collecting i + 1, finished after |
/// |              |                                  | the last; Escape, time-out: cancelled;              |
/// |              |                                  | device lost: closed                                 |
/// | finished     | redraw after the last touch      | ReCalibrate: collecting 0; OK, Return: committed;   |
/// |              |                                  | Cancel, Escape, time-out: cancelled;                |
/// |              |                                  | device lost: closed                                 |
/// | button held  | mouse-down on a button, finished | mouse-up: finished, and the button performed        |
/// | committed    | OK, Return                       | at once: closed                                     |
/// | cancelled    | Cancel, Escape, time-out         | at once: closed                                     |
/// | closed       | exit(), a redraw without device  | never                                               |
///
/// A "CalibrateMode" without a grid shows no target and leaves on Escape, time-out and device lost only.
class Calibration final : public View {
 public:
  /// `frame` is the area of the screen that the view fills.
  Calibration(const Rect& frame, const CalibrationPorts& ports);

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

 private:
  void timerCallBack();
  void cancel();
  Size box() const { return {fDspWidth, fDspHeight}; }

  CalibrationRun run_;
  CalibrationScreen screen_;
  RegistryObject iHandle = 0;
  float fDspWidth;
  float fDspHeight;
};

}  // namespace touchpanel
