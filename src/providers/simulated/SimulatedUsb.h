#pragma once

#include <functional>
#include <memory>

#include "providers/simulated/SimulatedTouchscreen.h"
#include "providers/usb/HotplugBus.h"

namespace touchpanel::simulated {

/// The USB bus of a simulated machine, behind the same ports as the real one.
class SimulatedUsb final : public HotplugBus {
 public:
  /// `touchscreen` must stay until it is detached. Notifications are queued and delivered by the run loop.
  void attach(SimulatedTouchscreen& touchscreen);
  void detach(SimulatedTouchscreen& touchscreen) { left(&touchscreen); }

  /// Called before each control transfer; a test can unplug the device here, in the middle of an exchange.
  std::function<void(const DeviceRequest&)> beforeTransfer;

 private:
  class Interface;

  std::shared_ptr<UsbDeviceInterface> makeInterface(UsbInterfaceOrigin origin) override;
};

}  // namespace touchpanel::simulated
