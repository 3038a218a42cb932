#include "providers/simulated/SimulatedUsb.h"

#include <utility>

#include "platform_build/BuildConstants.h"

namespace touchpanel::simulated {

namespace {

constexpr std::uint8_t kDirectionIn = 0x80;

struct SimulatedAttachment : UsbAttachment {
  SimulatedTouchscreen& touchscreen;
  const void* openedBy = nullptr;  ///< the interface that has it open
};

Status statusOf(firmware::TransferResult result) {
  switch (result) {
    case firmware::TransferResult::Done:
      return kSuccess;
    case firmware::TransferResult::Stalled:
      return kErrorStalled;
    case firmware::TransferResult::Gone:
      return kErrorNoDevice;
  }
  return kErrorGeneral;
}

}  // namespace

/// One opened or openable path to an attached touchscreen.
class SimulatedUsb::Interface final : public AttachedInterface {
 public:
  Interface(SimulatedUsb& usb, const UsbInterfaceOrigin& origin)
      : AttachedInterface(origin), usb_(usb), stay_(static_cast<SimulatedAttachment&>(*origin.attachment)) {}
  ~Interface() override { close(); }

  Status open() override {
    if (!stay_.attached) return kErrorNoDevice;
    if (stay_.openedBy != nullptr && stay_.openedBy != this) return kErrorExclusiveAccess;
    stay_.openedBy = this;
    return kSuccess;
  }
  Status close() override {
    if (stay_.openedBy != this) return kErrorNotOpen;
    stay_.openedBy = nullptr;
    return kSuccess;
  }
  Status deviceRequest(DeviceRequest& request) override {
    if (usb_.beforeTransfer) usb_.beforeTransfer(request);
    if (!stay_.attached) return kErrorNoDevice;
    if (stay_.openedBy != this) return kErrorNotOpen;
    auto& firmware = stay_.touchscreen.firmware();
    std::size_t length = request.wLength;
    const auto result = (request.bmRequestType & kDirectionIn) != 0
                            ? firmware.reply({request.pData, request.wLength}, length)
                            : firmware.receive({request.pData, request.wLength});
    request.wLenDone = result == firmware::TransferResult::Done ? static_cast<std::uint32_t>(length) : 0;
    return statusOf(result);
  }
  Status getConfiguration(std::uint8_t& configuration) override {
    if (!stay_.attached) return kErrorNoDevice;
    configuration = stay_.touchscreen.model().configuration;
    return kSuccess;
  }
  Status getLocationID(std::uint32_t& locationId) override {
    if (!stay_.attached) return kErrorNoDevice;
    locationId = stay_.touchscreen.locationId();
    return kSuccess;
  }

 private:
  SimulatedUsb& usb_;
  SimulatedAttachment& stay_;
};

void SimulatedUsb::attach(SimulatedTouchscreen& touchscreen) {
  touchscreen.firmware().powerCycle();
  arrived(std::make_shared<SimulatedAttachment>(
      SimulatedAttachment{{&touchscreen, TOUCH_VENDOR_ID, touchscreen.productId()}, touchscreen}));
}

std::shared_ptr<UsbDeviceInterface> SimulatedUsb::makeInterface(UsbInterfaceOrigin origin) {
  return std::make_shared<Interface>(*this, origin);
}

}  // namespace touchpanel::simulated
