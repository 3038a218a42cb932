#include "app/CalibrationStarter.h"

namespace touchpanel {

CalibrationStarter::CalibrationStarter(const ControllerPorts& ports, const ControllerState& state,
                                       TableReloader& controller)
    : ports_(ports),
      state_(state),
      controller_(controller),
      driver_(ports.registry),
      store_(ports.usbServices, ports.files, ports.paths, {ports.clock, ports.diagnostics},
             ports.waitNotice) {}

void CalibrationStarter::startPoints() {
  if (!mayStart()) return;
  ports_.statusLine.show({StatusText::CalibrationStarted, state_.currentDict->text(entry_key::kSN)});
  start(CalibrateView, CalibWindow);
}

void CalibrationStarter::startRegion() {
  if (!mayStart()) return;
  ports_.statusLine.show({StatusText::RegionCalibrationStarted, state_.currentDict->text(entry_key::kSN)});
  start(RegionCalibrateView, RegionCalibWindow);
}

bool CalibrationStarter::mayStart() {
  const bool running = (CalibrateView && !CalibrateView->run().isOver()) ||
                       (RegionCalibrateView && !RegionCalibrateView->run().isOver());
  if (running) return false;
  if (!state_.hasSelection()) ports_.statusLine.show({StatusText::NoDeviceSelected});
  return state_.hasSelection();
}

template <typename View>
void CalibrationStarter::start(std::unique_ptr<View>& view, std::unique_ptr<RunWindow>& window) {
  window.reset();
  const auto frame = ports_.screen.mainScreenFrame();
  view = std::make_unique<View>(
      frame, CalibrationPorts{driver_, ports_.runLoop, ports_.cursor, ports_.presentation, store_});
  window = std::make_unique<RunWindow>(ports_.screen.createBorderlessWindow(frame, behaviour_), controller_,
                                       ports_.statusLine, state_.currentDict->text(entry_key::kSN));
  view->setWindow(*window);
  view->setCalibrateDict(state_.currentDict, *window);
  window->present(*view);
}

}  // namespace touchpanel
