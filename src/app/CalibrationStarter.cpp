#include "app/CalibrationStarter.h"

#include "platform/Translatable.h"

namespace touchpanel {

void CalibrationStarter::startPoints() {
  if (!mayStart()) return;
  statusLine_.show({TRANSLATABLE_TEXT("StatusLine", "Calibration of %1 started."),
                    state_.currentDict->text(entry_key::kSN)});
  start(CalibrateView, CalibWindow);
}

void CalibrationStarter::startRegion() {
  if (!mayStart()) return;
  statusLine_.show({TRANSLATABLE_TEXT("StatusLine", "Region calibration of %1 started."),
                    state_.currentDict->text(entry_key::kSN)});
  start(RegionCalibrateView, RegionCalibWindow);
}

bool CalibrationStarter::mayStart() {
  const bool running = (CalibrateView && !CalibrateView->run().isOver()) ||
                       (RegionCalibrateView && !RegionCalibrateView->run().isOver());
  if (running) return false;
  if (!state_.hasSelection()) statusLine_.show(kNoDeviceSelected);
  return state_.hasSelection() && mayOverwrite();
}

bool CalibrationStarter::mayOverwrite() {
  const auto unread = state_.currentDict->integer(entry_key::kUnreadBlocks);
  if (!ContentSet::fromBits(static_cast<std::uint32_t>(unread)).contains(Content::DeviceConfig)) return true;
  // Asked here and not at OK, which is performed while the screen is drawn, and before any touch is in vain.
  return alerts_.ask(
      TRANSLATABLE_TEXT("Alert", "Warning"),
      TRANSLATABLE_TEXT("Alert", "The configuration of this touchscreen could not be read."),
      TRANSLATABLE_TEXT("Alert",
                        "OK at the end of a calibration overwrites it, and what it held is lost. "
                        "To have it read again, unplug the touchscreen and plug it in."),
      TRANSLATABLE_TEXT("Alert", "Calibrate"), TRANSLATABLE_TEXT("Alert", "Cancel"));
}

template <typename View>
void CalibrationStarter::start(std::unique_ptr<View>& view, std::unique_ptr<RunWindow>& window) {
  window.reset();
  const auto [connector, turn] = monitors_.place(*state_.currentDict);
  screen_.setMain(connector);
  const auto frame = screen_.mainScreenFrame();
  auto ports = ports_;
  ports.scale = screen_.mainScreenScale();
  ports.turn = turn;
  view = std::make_unique<View>(frame, ports);
  window = std::make_unique<RunWindow>(screen_.createBorderlessWindow(frame, behaviour_),
                                       Size{frame.width, frame.height}, view->run(), controller_, writes_,
                                       facts_, statusLine_);
  view->setWindow(*window);
  view->setCalibrateDict(state_.currentDict, *window);
  if (!view->run().isOver()) window->present(*view);
}

}  // namespace touchpanel
