#pragma once

#include "firmware/Firmware.h"
#include "platform/Usb.h"

namespace touchpanel::testing {

/// A USB device with a touchscreen's firmware behind it and nothing between: no bus, no time. `firmware` must
/// outlive it.
class FirmwareUsbDevice final : public UsbDeviceInterface {
 public:
  explicit FirmwareUsbDevice(firmware::Firmware& firmware) : firmware_(firmware) {}

  Status open() override {
    isOpen = true;
    return kSuccess;
  }
  Status close() override {
    isOpen = false;
    return kSuccess;
  }
  Status deviceRequest(DeviceRequest& request) override {
    std::size_t length = request.wLength;
    const auto result = (request.bmRequestType & 0x80) != 0
                            ? firmware_.reply({request.pData, request.wLength}, length)
                            : firmware_.receive({request.pData, request.wLength});
    if (result == firmware::TransferResult::Stalled) return kErrorStalled;
    if (result == firmware::TransferResult::Gone) return kErrorNoDevice;
    request.wLenDone = static_cast<std::uint32_t>(length);
    return kSuccess;
  }
  Status getConfiguration(std::uint8_t& configuration) override {
    configuration = 1;
    return kSuccess;
  }
  Status getLocationID(std::uint32_t& locationId) override {
    locationId = 0x14100000;
    return kSuccess;
  }
  Status getDeviceVendor(std::uint16_t& vendorId) override {
    vendorId = 0x6666;
    return kSuccess;
  }
  Status getDeviceProduct(std::uint16_t& productId) override {
    productId = firmware_.stored().productId;
    return kSuccess;
  }
  void release() override {}
  UsbDeviceReference reference() const override { return 1; }

  bool isOpen = false;

 private:
  firmware::Firmware& firmware_;
};

}  // namespace touchpanel::testing
