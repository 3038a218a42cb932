#include "providers/simulated/SimulatedTouchscreens.h"

namespace touchpanel::simulated {

SimulatedTouchscreen& SimulatedTouchscreens::add(TouchscreenModel model) {
  touchscreens_.push_back(std::make_unique<SimulatedTouchscreen>(std::move(model)));
  return *touchscreens_.back();
}

void SimulatedTouchscreens::plugIn(SimulatedTouchscreen& touchscreen) {
  if (isPluggedIn(touchscreen)) return;
  // The instance is there before the device is found, as the driver's pairing with it expects.
  pluggedIn_[&touchscreen] = registry_.publish(touchscreen);
  touchscreen.loadCalibrationIntoDriver();
  usb_.attach(touchscreen);
}

void SimulatedTouchscreens::unplug(SimulatedTouchscreen& touchscreen) {
  if (pluggedIn_.erase(&touchscreen) == 0) return;
  registry_.withdraw(touchscreen);
  usb_.detach(touchscreen);
}

bool SimulatedTouchscreens::isPluggedIn(const SimulatedTouchscreen& touchscreen) const {
  return pluggedIn_.contains(&touchscreen);
}

RegistryObject SimulatedTouchscreens::handleOf(const SimulatedTouchscreen& touchscreen) const {
  const auto found = pluggedIn_.find(&touchscreen);
  return found == pluggedIn_.end() ? 0 : found->second;
}

std::vector<TouchscreenModel> exampleTouchscreens() {
  using firmware::exampleDevice;
  return {
      {"Infrared",
       exampleDevice(DeviceKind::Infrared, 1),
       {.offsetX = 0.012,
        .offsetY = -0.009,
        .scaleX = 0.965,
        .scaleY = 0.972,
        .skewX = 0.008,
        .skewY = -0.006,
        .barrel = 0.035,
        .noise = 6},
       0x14100000},
      {"Optical",
       exampleDevice(DeviceKind::Optical, 2),
       {.offsetX = -0.016,
        .offsetY = 0.014,
        .scaleX = 0.95,
        .scaleY = 1.03,
        .skewX = 0.02,
        .skewY = 0.012,
        .barrel = 0.002,
        .noise = 6},
       0x14200000},
      {"Configuration only",
       exampleDevice(DeviceKind::ConfigurationOnly, 3),
       {.offsetX = 0.02, .offsetY = 0.018, .scaleX = 0.94, .scaleY = 0.95, .noise = 4},
       0x14300000},
  };
}

}  // namespace touchpanel::simulated
