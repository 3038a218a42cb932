#pragma once

#include <memory>

#include <libusb.h>

namespace touchpanel {

struct LibusbDeviceUnref {
  void operator()(libusb_device* device) const { libusb_unref_device(device); }
};
using LibusbDevice = std::unique_ptr<libusb_device, LibusbDeviceUnref>;

/// One stay of a USB device on the bus, from plugging in to unplugging.
struct UsbAttachment {
  LibusbDevice device;
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
  bool attached = true;  ///< false once its leaving has been noticed
};

}  // namespace touchpanel
