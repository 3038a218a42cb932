#pragma once

#include "discovery/DiscoveryPorts.h"

namespace touchpanel {

/// The way from a matched USB service to a device that is open for control transfers.
class DeviceOpening {
 public:
  explicit DeviceOpening(const DiscoveryPorts& ports) : ports_(ports) {}

  /// Opens the device behind `service`, which is released in any case, and makes it the device being worked
  /// on. Null when a step failed, which has been reported by then; `status` says why. A device that cannot be
  /// opened is tried 50 times and blocks for 24.5 s, unless it is gone; its interface is released.
  UsbDeviceInterface* open(UsbService service, Status& status);

 private:
  UsbPlugIn plugInOf(UsbService service, Status& status);
  UsbDeviceInterface* interfaceOf(UsbPlugIn plugIn, Status& status);
  Status openPatiently(UsbDeviceInterface& device);
  void giveUp(UsbDeviceInterface& device, Status status);

  const DiscoveryPorts& ports_;
};

}  // namespace touchpanel
