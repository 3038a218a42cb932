#include "providers/linux/usb/LibusbDeviceInterface.h"

#include <array>
#include <span>
#include <utility>

#include "contract/LocationId.h"
#include "providers/linux/usb/UsbStatus.h"

namespace touchpanel {
namespace {

/// USB allows that many tiers below the root hub.
constexpr std::size_t kDeepestPath = 7;

struct LibusbAttachment : UsbAttachment {
  LibusbDevice owned;
};

}  // namespace

std::shared_ptr<UsbAttachment> libusbAttachment(LibusbDevice device,
                                                const libusb_device_descriptor& descriptor) {
  auto* raw = device.get();
  return std::make_shared<LibusbAttachment>(
      LibusbAttachment{{raw, descriptor.idVendor, descriptor.idProduct}, std::move(device)});
}

LibusbDeviceInterface::LibusbDeviceInterface(UsbInterfaceOrigin origin)
    : AttachedInterface(std::move(origin)),
      device_(static_cast<const LibusbAttachment&>(attachment()).owned.get()) {}

LibusbDeviceInterface::~LibusbDeviceInterface() { close(); }

Status LibusbDeviceInterface::open() {
  if (handle_ != nullptr) return kSuccess;
  const auto locked = lock_.take(libusb_get_bus_number(device_), libusb_get_device_address(device_));
  if (locked != kSuccess) return locked;
  const auto opened = statusOfLibusb(libusb_open(device_, &handle_));
  if (opened == kSuccess) return kSuccess;
  handle_ = nullptr;
  lock_.release();
  return opened;
}

Status LibusbDeviceInterface::close() {
  if (handle_ == nullptr) return kErrorNotOpen;
  libusb_close(handle_);
  handle_ = nullptr;
  lock_.release();
  return kSuccess;
}

Status LibusbDeviceInterface::deviceRequest(DeviceRequest& request) {
  request.wLenDone = 0;
  if (handle_ == nullptr) return kErrorNotOpen;
  const int moved = libusb_control_transfer(handle_, request.bmRequestType, request.bRequest, request.wValue,
                                            request.wIndex, request.pData, request.wLength,
                                            static_cast<unsigned int>(kTransferTimeout.count()));
  if (moved > 0) request.wLenDone = static_cast<std::uint32_t>(moved);
  return statusOfLibusb(moved);
}

Status LibusbDeviceInterface::getConfiguration(std::uint8_t& configuration) {
  libusb_config_descriptor* descriptor = nullptr;
  const int result = libusb_get_active_config_descriptor(device_, &descriptor);
  if (result == LIBUSB_ERROR_NOT_FOUND) {
    configuration = 0;
    return kSuccess;
  }
  if (result < 0) return statusOfLibusb(result);
  configuration = descriptor->bConfigurationValue;
  libusb_free_config_descriptor(descriptor);
  return kSuccess;
}

Status LibusbDeviceInterface::getLocationID(std::uint32_t& locationId) {
  std::array<std::uint8_t, kDeepestPath> ports{};
  const int depth = libusb_get_port_numbers(device_, ports.data(), static_cast<int>(ports.size()));
  if (depth < 0) return statusOfLibusb(depth);
  const auto path = std::span(ports).first(static_cast<std::size_t>(depth));
  locationId = locationIdFor(libusb_get_bus_number(device_), path);
  return kSuccess;
}

}  // namespace touchpanel
