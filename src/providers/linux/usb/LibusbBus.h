#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/LibraryInUse.h"
#include "providers/linux/usb/LibusbDeviceInterface.h"
#include "providers/usb/HotplugBus.h"

namespace touchpanel {

LibraryInUse libusbInUse();

/// The machine's USB bus through libusb 1.0, for devices of one vendor.
///
/// libusb calls its hot-plug callback from wherever it handles events, which includes the inside of a
/// synchronous transfer. The callback therefore only queues:
///
///     libusb callback ──► queue_ ──► pump(), outside transfers ──► iterators ──► run loop ──► callbacks
///
/// When libusb cannot be started or knows no hot-plugging, masterPort() fails and nothing is ever found.
class LibusbBus final : public HotplugBus {
 public:
  explicit LibusbBus(std::uint16_t vendorId);
  ~LibusbBus() override;

  Status masterPort(MasterPort& port) override;

 private:
  struct HotplugEvent {
    UsbEvent event;
    LibusbDevice device;
  };

  static int LIBUSB_CALL hotplug(libusb_context* context, libusb_device* device, libusb_hotplug_event event,
                                 void* bus);
  Status start(std::uint16_t vendorId);
  /// Has libusb handle what is pending, and takes in what its callback queued.
  void pump() override;
  void takeIn(LibusbDevice device);
  std::vector<int> descriptors() const override;
  std::shared_ptr<UsbDeviceInterface> makeInterface(UsbInterfaceOrigin origin) override;

  libusb_context* context_ = nullptr;
  Status started_ = kErrorGeneral;
  std::vector<HotplugEvent> queue_;  ///< what libusb's callback was called with, in order
};

}  // namespace touchpanel
