#include "demo/Demo.h"

#include <QScreen>
#include <algorithm>

#include "demo/CalibrationOnScreen.h"

namespace touchpanel::demo {
namespace {

/// The machine that the demo runs on: one touchscreen of each kind, all plugged in.
void plugInExamples(simulated::SimulatedTouchscreens& machine) {
  for (auto& model : simulated::exampleTouchscreens()) machine.plugIn(machine.add(std::move(model)));
}

bool belongsTo(const QWindow* window, const QWidget& owner) {
  for (; window != nullptr; window = window->transientParent())
    if (window == owner.windowHandle()) return true;
  return false;
}

}  // namespace

Demo::Demo(Clock& clock, Diagnostics& diagnostics)
    : paths_(ConfigPaths::in(directory_.path().toStdString())),
      registry_(machine_.registry()),
      panel_(platform(clock, diagnostics)),
      simulator_(machine_),
      finger_([this](const QWindow& window) { return fingerOn(window); },
              [this](const auto& touchscreen, auto point, auto raw) { showTouch(touchscreen, point, raw); },
              fingerClock_) {}

PanelPlatform Demo::platform(Clock& clock, Diagnostics& diagnostics) {
  plugInExamples(machine_);
  return {.usbNotifications = machine_.usb(),
          .usbServices = machine_.usb(),
          .registry = registry_,
          .monitors = monitors_,
          .files = files_,
          .clock = clock,
          .diagnostics = diagnostics,
          .paths = paths_,
          .history = {historyFiles_, time_, directory_.path().toStdString() + "/history"},
          .libraries = {files::libplistInUse(), files::expatInUse()}};
}

void Demo::start() {
  placeWindows();
  panel_.start();
  if (!panel_.application().isEnding()) simulator_.show();
}

/// Side by side and as high as each wants to be, the panel giving way as far as it can.
void Demo::placeWindows() {
  constexpr int kGap = 8;
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  auto& main = panel_.mainWindow();
  simulator_.adjustSize();
  const int room = screen.width() - simulator_.width() - kGap;
  main.resize(
      std::clamp(main.width(), std::min(main.minimumWidth(), room), std::max(room, main.minimumWidth())),
      main.height());
  const int left = screen.x() + std::max(0, (room - main.width()) / 2);
  const int top = screen.y() + std::max(0, (screen.height() - main.height()) / 3);
  main.move(left, top);
  simulator_.move(std::min(left + main.width() + kGap, screen.right() + 1 - simulator_.width()), top);
}

simulated::SimulatedTouchscreen& Demo::touchscreen(DeviceKind kind) {
  return **std::ranges::find_if(
      machine_.all(), [&](const auto& candidate) { return kindOf(candidate->productId()) == kind; });
}

ScreenSize Demo::screen() {
  const QSize size = QGuiApplication::primaryScreen()->size();
  return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

DeviceEntry Demo::entryOf(const simulated::SimulatedTouchscreen& touchscreen) {
  const auto handle = machine_.handleOf(touchscreen);
  const auto& list = state().deviceListArray;
  const auto found = std::ranges::find_if(
      list, [&](const auto& entry) { return registryObjectOf(*entry, entry_key::kHandle) == handle; });
  return handle == 0 || found == list.end() ? nullptr : *found;
}

std::optional<_CALIB_PARAMS> Demo::storedCalibration(simulated::SimulatedTouchscreen& touchscreen) {
  if (kindOf(touchscreen.productId()) != DeviceKind::ConfigurationOnly) {
    const auto& stored = touchscreen.firmware().stored();
    if (stored.deviceConfig.CalibrateStatus == 0) return std::nullopt;
    return stored.calibParams;
  }
  const auto file = DataSet(files_, paths_).loadedDeviceConfig();
  const auto* image = file.bytes(device_config_key::kCalibParams);
  if (image == nullptr || !file.boolean(device_config_key::kCalibrateStatus)) return std::nullopt;
  _CALIB_PARAMS params{};
  copyImage(*image, params);
  return params;
}

/// During a calibration the mouse is a finger on the selected touchscreen, else on the one that the user has
/// chosen; on the simulator window it is always a mouse.
simulated::SimulatedTouchscreen* Demo::fingerOn(const QWindow& window) {
  const auto* surface = ViewSurface::shown();
  if (surface != nullptr && runOn(*surface) == nullptr && !isForFinger(*surface)) surface = nullptr;
  if (surface == nullptr) return belongsTo(&window, simulator_) ? nullptr : simulator_.fingerOn();
  if (!isForFinger(*surface)) return nullptr;
  for (const auto& touchscreen : machine_.all())
    if (const auto entry = entryOf(*touchscreen); entry != nullptr && entry == state().currentDict)
      return touchscreen.get();
  return nullptr;
}

void Demo::showTouch(const simulated::SimulatedTouchscreen& touchscreen, firmware::ScreenFraction point,
                     firmware::RawPoint raw) {
  simulator_.showTouch(touchscreen, readingOf(point, raw, touchscreen.driver(), screen()), screen());
}

}  // namespace touchpanel::demo
