#pragma once

#include <memory>

#include "app/BorderlessWindow.h"
#include "app/ControllerPorts.h"
#include "app/ControllerState.h"
#include "app/RunWindow.h"
#include "calibration/Calibration.h"
#include "calibration/RegionCalibration.h"
#include "discovery/ContextStore.h"
#include "discovery/DriverChannel.h"

namespace touchpanel {

/// Puts a calibration of the selected touchscreen on the main screen, above everything, and starts it. View
/// and window are kept until the next run of their kind replaces them. While a run is on the screen no other
/// one is started.
class CalibrationStarter {
 public:
  /// `controller` is told of an accepted result; it must outlive the runs.
  CalibrationStarter(const ControllerPorts& ports, const ControllerState& state, TableReloader& controller);

  /// Targets all over the screen.
  void startPoints();
  /// Targets in a rectangle that the user drags out first.
  void startRegion();

 private:
  bool mayStart();

  /// Shows a new view of type `View` in a new window and hands it the selected entry.
  template <typename View>
  void start(std::unique_ptr<View>& view, std::unique_ptr<RunWindow>& window);

  const ControllerPorts& ports_;
  const ControllerState& state_;
  TableReloader& controller_;
  DriverChannel driver_;
  ContextStore store_;
  BorderlessWindow behaviour_;

  // A window goes before the view that it shows.
  std::unique_ptr<Calibration> CalibrateView;
  std::unique_ptr<RunWindow> CalibWindow;
  std::unique_ptr<RegionCalibration> RegionCalibrateView;
  std::unique_ptr<RunWindow> RegionCalibWindow;
};

}  // namespace touchpanel
