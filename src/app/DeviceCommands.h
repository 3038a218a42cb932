#pragma once

#include "app/CommandButtons.h"
#include "app/ControllerPorts.h"
#include "discovery/ContextStore.h"
#include "discovery/DriverChannel.h"

namespace touchpanel {

/// The commands that act on the selected touchscreen at once.
class DeviceCommands {
 public:
  DeviceCommands(const Outlets& outlets, const ControllerPorts& ports, ControllerState& state);

  /// Discards the device's calibration, in the driver and in the device. What is written is the process-wide
  /// context, not the entry's: apart from the status everything goes out as it stands there. Blocks for the
  /// time of the write. No outcome is examined.
  void Reset();

  /// Turns "EnableTouch" over in every entry, but tells the selected device's driver only.
  void EnableTouch();

 private:
  const Outlets& outlets_;
  const ControllerPorts& ports_;
  ControllerState& state_;
  CommandButtons buttons_;
  DriverChannel driver_;
  ContextStore store_;
};

}  // namespace touchpanel
