#include "providers/linux/usb/LibusbBus.h"

#include <utility>

#include <poll.h>
#include <sys/time.h>

#include "providers/linux/usb/UsbStatus.h"

namespace touchpanel {

LibraryInUse libusbInUse() {
  const auto* version = libusb_get_version();
  return {.name = "libusb",
          .licence = "GNU LGPL 2.1 or later",
          .version = versionText(version->major, version->minor, version->micro)};
}

// In the body: libusb reports the devices already there at once, and the queue has to stand by then.
LibusbBus::LibusbBus(std::uint16_t vendorId) { started_ = start(vendorId); }

LibusbBus::~LibusbBus() {
  // Everything that holds a device or a handle goes before the context does.
  clear();
  queue_.clear();
  if (context_ != nullptr) libusb_exit(context_);
}

Status LibusbBus::start(std::uint16_t vendorId) {
  const auto initialised = statusOfLibusb(libusb_init(&context_));
  if (initialised != kSuccess) {
    context_ = nullptr;
    return initialised;
  }
  if (libusb_has_capability(LIBUSB_CAP_HAS_HOTPLUG) == 0) return kErrorUnsupported;
  return statusOfLibusb(libusb_hotplug_register_callback(
      context_, LIBUSB_HOTPLUG_EVENT_DEVICE_ARRIVED | LIBUSB_HOTPLUG_EVENT_DEVICE_LEFT,
      LIBUSB_HOTPLUG_ENUMERATE, vendorId, LIBUSB_HOTPLUG_MATCH_ANY, LIBUSB_HOTPLUG_MATCH_ANY,
      &LibusbBus::hotplug, this, nullptr));
}

int LibusbBus::hotplug(libusb_context*, libusb_device* device, libusb_hotplug_event event, void* bus) {
  auto& self = *static_cast<LibusbBus*>(bus);
  const bool arrival = event == LIBUSB_HOTPLUG_EVENT_DEVICE_ARRIVED;
  try {
    self.queue_.push_back(
        {arrival ? UsbEvent::FirstMatch : UsbEvent::Terminate, LibusbDevice(libusb_ref_device(device))});
  } catch (...) {
    // Out of memory, and nothing may be thrown through libusb: this event is lost.
    return 0;
  }
  self.wake();
  return 0;
}

void LibusbBus::pump() {
  if (context_ == nullptr) return;
  timeval doNotWait{0, 0};
  libusb_handle_events_timeout_completed(context_, &doNotWait, nullptr);
  for (auto& [event, device] : std::exchange(queue_, {})) {
    if (event == UsbEvent::FirstMatch)
      takeIn(std::move(device));
    else
      left(device.get());
  }
}

void LibusbBus::takeIn(LibusbDevice device) {
  libusb_device_descriptor descriptor{};
  if (libusb_get_device_descriptor(device.get(), &descriptor) < 0) return;
  arrived(libusbAttachment(std::move(device), descriptor));
}

Status LibusbBus::masterPort(MasterPort& port) {
  port = started_ == kSuccess ? 1 : 0;
  return started_;
}

std::vector<int> LibusbBus::descriptors() const {
  std::vector<int> found;
  const auto** polled = context_ != nullptr ? libusb_get_pollfds(context_) : nullptr;
  if (polled == nullptr) return found;
  // Those of open devices are for transfers, which are all synchronous here, and they come and go.
  for (auto* each = polled; *each != nullptr; ++each)
    if (((*each)->events & POLLIN) != 0) found.push_back((*each)->fd);
  libusb_free_pollfds(polled);
  return found;
}

std::shared_ptr<UsbDeviceInterface> LibusbBus::makeInterface(UsbInterfaceOrigin origin) {
  return std::make_shared<LibusbDeviceInterface>(std::move(origin));
}

}  // namespace touchpanel
