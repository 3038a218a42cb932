#include "providers/linux/usb/LibusbDeviceInterface.h"

#include <array>

#include "contract/LocationId.h"
#include "providers/linux/usb/UsbStatus.h"

namespace touchpanel {
namespace {

/// USB allows that many tiers below the root hub.
constexpr std::size_t kDeepestPath = 7;

}  // namespace

LibusbDeviceInterface::LibusbDeviceInterface(std::shared_ptr<const UsbAttachment> attachment,
                                             UsbDeviceReference reference,
                                             std::function<void(UsbDeviceReference)> onRelease)
    : attachment_(std::move(attachment)), reference_(reference), onRelease_(std::move(onRelease)) {}

LibusbDeviceInterface::~LibusbDeviceInterface() { close(); }

Status LibusbDeviceInterface::open() {
  if (handle_ != nullptr) return kSuccess;
  auto* device = attachment_->device.get();
  const auto locked = lock_.take(libusb_get_bus_number(device), libusb_get_device_address(device));
  if (locked != kSuccess) return locked;
  const auto opened = statusOfLibusb(libusb_open(device, &handle_));
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
  const int result = libusb_get_active_config_descriptor(attachment_->device.get(), &descriptor);
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
  auto* device = attachment_->device.get();
  std::array<std::uint8_t, kDeepestPath> ports{};
  const int depth = libusb_get_port_numbers(device, ports.data(), static_cast<int>(ports.size()));
  if (depth < 0) return statusOfLibusb(depth);
  const auto path = std::span(ports).first(static_cast<std::size_t>(depth));
  locationId = locationIdFor(libusb_get_bus_number(device), path);
  return kSuccess;
}

Status LibusbDeviceInterface::getDeviceVendor(std::uint16_t& vendorId) {
  vendorId = attachment_->vendorId;
  return kSuccess;
}

Status LibusbDeviceInterface::getDeviceProduct(std::uint16_t& productId) {
  productId = attachment_->productId;
  return kSuccess;
}

void LibusbDeviceInterface::release() {
  const auto onRelease = std::move(onRelease_);  // outlives this
  onRelease(reference_);
}

}  // namespace touchpanel
