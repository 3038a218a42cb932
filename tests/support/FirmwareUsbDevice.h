#pragma once

#include "firmware/Firmware.h"
#include "support/FakeUsbDevice.h"

namespace touchpanel::testing {

/// A USB device with a touchscreen's firmware behind it and nothing between: no bus, no time. `firmware` must
/// outlive it.
class FirmwareUsbDevice final : public FakeUsbDevice {
 public:
  explicit FirmwareUsbDevice(firmware::Firmware& firmware) : firmware_(firmware) {
    productId = firmware.stored().productId;
  }

 private:
  static Status statusOf(firmware::TransferResult result) {
    if (result == firmware::TransferResult::Stalled) return kErrorStalled;
    return result == firmware::TransferResult::Gone ? kErrorNoDevice : kSuccess;
  }
  Status transferOut(std::span<std::uint8_t> packet) override { return statusOf(firmware_.receive(packet)); }
  Status transferIn(std::span<std::uint8_t> reply, std::size_t& moved) override {
    return statusOf(firmware_.reply(reply, moved));
  }

  firmware::Firmware& firmware_;
};

}  // namespace touchpanel::testing
