#pragma once

#include <chrono>
#include <memory>

#include <libusb.h>

#include "providers/linux/usb/DeviceLock.h"
#include "providers/usb/HotplugBus.h"

namespace touchpanel {

/// The longest that one control transfer may take. Devices answer within milliseconds, but one that writes
/// its flash holds the status stage back until the page is erased and written, which may take hundreds of
/// them; cut short, the block is sent again and written again, up to 50 times. A second also stays well below
/// the five that USB allows, so a device that hangs holds the program up no longer than it must.
inline constexpr std::chrono::milliseconds kTransferTimeout{1000};

struct LibusbDeviceUnref {
  void operator()(libusb_device* device) const { libusb_unref_device(device); }
};
using LibusbDevice = std::unique_ptr<libusb_device, LibusbDeviceUnref>;

/// A stay of `device` on the bus, which holds it.
std::shared_ptr<UsbAttachment> libusbAttachment(LibusbDevice device,
                                                const libusb_device_descriptor& descriptor);

/// A USB device through libusb. Vendor requests go to the default control endpoint, so no interface is
/// claimed and the kernel's input driver stays bound.
class LibusbDeviceInterface final : public AttachedInterface {
 public:
  /// `origin` holds an attachment made by libusbAttachment().
  explicit LibusbDeviceInterface(UsbInterfaceOrigin origin);
  ~LibusbDeviceInterface() override;

  /// Success, and nothing more, when this interface has it open already.
  Status open() override;
  Status close() override;
  Status deviceRequest(DeviceRequest& request) override;
  Status getConfiguration(std::uint8_t& configuration) override;
  Status getLocationID(std::uint32_t& locationId) override;

 private:
  libusb_device* device_;
  DeviceLock lock_;
  libusb_device_handle* handle_ = nullptr;
};

}  // namespace touchpanel
