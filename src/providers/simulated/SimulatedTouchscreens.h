#pragma once

#include <map>
#include <memory>
#include <vector>

#include "driver/PublishedInstances.h"
#include "providers/simulated/SimulatedTouchscreen.h"
#include "providers/simulated/SimulatedUsb.h"

namespace touchpanel::simulated {

/// A simulated machine with touchscreens that can be plugged in and out: its USB bus, its registry and the
/// driver service between them. A touchscreen that is unplugged keeps what its firmware holds, and the driver
/// keeps its settings for it, as on a real machine.
class SimulatedTouchscreens {
 public:
  /// Adds a touchscreen, not plugged in yet. It lives as long as this object.
  SimulatedTouchscreen& add(TouchscreenModel model);
  /// Publishes its driver instance and attaches it to the bus. Nothing happens when it is plugged in already.
  void plugIn(SimulatedTouchscreen& touchscreen);
  /// Withdraws its driver instance and takes it off the bus. Nothing happens when it is not plugged in.
  void unplug(SimulatedTouchscreen& touchscreen);
  bool isPluggedIn(const SimulatedTouchscreen& touchscreen) const;
  /// Registry object of its driver instance; 0 when it is not plugged in.
  RegistryObject handleOf(const SimulatedTouchscreen& touchscreen) const;

  const std::vector<std::unique_ptr<SimulatedTouchscreen>>& all() const { return touchscreens_; }
  SimulatedUsb& usb() { return usb_; }
  driver::PublishedInstances& registry() { return registry_; }

 private:
  std::vector<std::unique_ptr<SimulatedTouchscreen>> touchscreens_;
  std::map<const SimulatedTouchscreen*, RegistryObject> pluggedIn_;
  SimulatedUsb usb_;
  driver::HidSystem hidSystem_;
  driver::PublishedInstances registry_{hidSystem_};
};

/// One touchscreen of each kind, misaligned as they come out of the box: the infrared one with barrel
/// distortion, the optical one with skew, the configuration-only one with offset and scale.
std::vector<TouchscreenModel> exampleTouchscreens();

}  // namespace touchpanel::simulated
