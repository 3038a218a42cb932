#pragma once

#include <memory>

#include "app/CalibrationWrites.h"
#include "app/ControllerState.h"
#include "app/RunWindow.h"
#include "app/TouchscreenMonitors.h"
#include "calibration/Calibration.h"
#include "calibration/RegionCalibration.h"

namespace touchpanel {

/// A window without a title bar that takes the keyboard and becomes main all the same: a calibration needs its
/// key events.
class BorderlessWindow final : public WindowBehaviour {
 public:
  bool canBecomeKeyWindow() const override { return true; }
  bool canBecomeMainWindow() const override { return true; }
};

/// Puts a calibration of the selected touchscreen on its monitor, above everything, and starts it. View
/// and window are kept until the next run of their kind replaces them. While a run is on the screen no other
/// one is started.
class CalibrationStarter {
 public:
  /// `controller` is called after an accepted result; it must outlive the runs.
  CalibrationStarter(const ControllerState& state, const CalibrationPorts& ports, Screen& screen,
                     Alerts& alerts, CalibrationWrites& writes, SelectedDeviceFacts& facts,
                     StatusLine& statusLine, TouchscreenMonitors& monitors, TableReloader& controller)
      : state_(state),
        ports_(ports),
        screen_(screen),
        alerts_(alerts),
        writes_(writes),
        facts_(facts),
        statusLine_(statusLine),
        monitors_(monitors),
        controller_(controller) {}

  /// Targets all over the screen.
  void startPoints();
  /// Targets in a rectangle that the user drags out first.
  void startRegion();

 private:
  bool mayStart();
  /// Asks before a run whose OK would overwrite a configuration that was never read.
  bool mayOverwrite();

  /// Shows a new view of type `View` in a new window and hands it the selected entry.
  template <typename View>
  void start(std::unique_ptr<View>& view, std::unique_ptr<RunWindow>& window);

  const ControllerState& state_;
  CalibrationPorts ports_;
  Screen& screen_;
  Alerts& alerts_;
  CalibrationWrites& writes_;
  SelectedDeviceFacts& facts_;
  StatusLine& statusLine_;
  TouchscreenMonitors& monitors_;
  TableReloader& controller_;
  BorderlessWindow behaviour_;

  // A window goes before the view that it shows.
  std::unique_ptr<Calibration> CalibrateView;
  std::unique_ptr<RunWindow> CalibWindow;
  std::unique_ptr<RegionCalibration> RegionCalibrateView;
  std::unique_ptr<RunWindow> RegionCalibWindow;
};

}  // namespace touchpanel
