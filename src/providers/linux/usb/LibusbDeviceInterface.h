#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/Usb.h"
#include "providers/linux/usb/DeviceLock.h"
#include "providers/linux/usb/UsbAttachment.h"

namespace touchpanel {

/// The longest that one control transfer may take. Devices answer within milliseconds; this only bounds how
/// long a device that hangs can hold the program up.
inline constexpr std::chrono::milliseconds kTransferTimeout{250};

/// A USB device through libusb. Vendor requests go to the default control endpoint, so no interface is
/// claimed and the kernel's input driver stays bound.
class LibusbDeviceInterface final : public UsbDeviceInterface {
 public:
  /// `onRelease` gets the reference when the interface is given up, and destroys it.
  LibusbDeviceInterface(std::shared_ptr<const UsbAttachment> attachment, UsbDeviceReference reference,
                        std::function<void(UsbDeviceReference)> onRelease);
  ~LibusbDeviceInterface() override;

  /// Success, and nothing more, when this interface has it open already.
  Status open() override;
  Status close() override;
  Status deviceRequest(DeviceRequest& request) override;
  Status getConfiguration(std::uint8_t& configuration) override;
  Status getLocationID(std::uint32_t& locationId) override;
  Status getDeviceVendor(std::uint16_t& vendorId) override;
  Status getDeviceProduct(std::uint16_t& productId) override;
  void release() override;
  UsbDeviceReference reference() const override { return reference_; }

 private:
  std::shared_ptr<const UsbAttachment> attachment_;
  UsbDeviceReference reference_;
  std::function<void(UsbDeviceReference)> onRelease_;
  DeviceLock lock_;
  libusb_device_handle* handle_ = nullptr;
};

}  // namespace touchpanel
