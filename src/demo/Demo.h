#pragma once

#include <QTemporaryDir>
#include <optional>

#include "demo/MouseFinger.h"
#include "demo/ObservedRegistry.h"
#include "demo/SimulatorWindow.h"
#include "demo/measure/FingerClock.h"
#include "demo/measure/TouchError.h"
#include "panel/ControlPanel.h"
#include "providers/files/LibplistFiles.h"
#include "providers/files/OwnDirectoryFiles.h"
#include "providers/monitors/QtMonitors.h"
#include "providers/process/SystemTime.h"
#include "providers/simulated/SimulatedTouchscreens.h"

namespace touchpanel::demo {

/// The control panel on three simulated touchscreens, one of each kind, with the simulator window beside it.
/// Its settings and files live in a directory of their own, which goes with the demo.
class Demo {
 public:
  /// Needs a running QApplication. `clock` is what the panel waits on; `diagnostics` gets its lines.
  Demo(Clock& clock, Diagnostics& diagnostics);

  /// Finds and reads the touchscreens, which blocks for seconds, and shows the windows.
  void start();
  /// Serves events until the panel ends and returns the process's status.
  int run() { return panel_.application().run(); }

  Application& application() { return panel_.application(); }
  simulated::SimulatedTouchscreens& machine() { return machine_; }
  /// The touchscreen of that kind.
  simulated::SimulatedTouchscreen& touchscreen(DeviceKind kind);
  ObservedRegistry& registry() { return registry_; }
  FingerClock& fingerClock() { return fingerClock_; }
  /// The screen that is touched.
  static ScreenSize screen();

  const ControllerState& state() { return panel_.controller().state(); }
  const TryOut& tryOut() const { return panel_.tryOutPage().tryOut(); }
  /// Its entry in the device list; null when it is not listed.
  DeviceEntry entryOf(const simulated::SimulatedTouchscreen& touchscreen);
  /// The calibration that it keeps, in its own memory or in the device configuration file; nothing when that
  /// says that it is not calibrated.
  std::optional<_CALIB_PARAMS> storedCalibration(simulated::SimulatedTouchscreen& touchscreen);

 private:
  PanelPlatform platform(Clock& clock, Diagnostics& diagnostics);
  void placeWindows();
  simulated::SimulatedTouchscreen* fingerOn(const QWindow& window);
  void showTouch(const simulated::SimulatedTouchscreen& touchscreen, firmware::ScreenFraction point,
                 firmware::RawPoint raw);

  QTemporaryDir directory_;
  ConfigPaths paths_;
  files::LibplistFiles files_;
  files::OwnDirectoryFiles historyFiles_{files_};
  SystemTime time_;
  simulated::SimulatedTouchscreens machine_;
  ObservedRegistry registry_;
  QtMonitors monitors_;
  FingerClock fingerClock_;
  ControlPanel panel_;
  SimulatorWindow simulator_;
  MouseFinger finger_;
};

}  // namespace touchpanel::demo
