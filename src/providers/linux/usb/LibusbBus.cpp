#include "providers/linux/usb/LibusbBus.h"

#include <algorithm>
#include <utility>

#include <poll.h>
#include <sys/time.h>

#include "contract/DriverProperties.h"
#include "providers/linux/usb/UsbStatus.h"

namespace touchpanel {

LibraryInUse libusbInUse() {
  const auto* version = libusb_get_version();
  return {.name = "libusb",
          .licence = "GNU LGPL 2.1 or later",
          .version = versionText(version->major, version->minor, version->micro)};
}

// In the body: libusb tells of the devices already there at once, and the queue has to stand by then.
LibusbBus::LibusbBus(std::uint16_t vendorId) { started_ = start(vendorId); }

LibusbBus::~LibusbBus() {
  // Everything that holds a device or a handle goes before the context does.
  interfaces_.clear();
  plugIns_.clear();
  services_.clear();
  ports_.clear();
  attachments_.clear();
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
  for (const auto& port : self.ports_) port->wake();
  return 0;
}

void LibusbBus::pump() {
  timeval doNotWait{0, 0};
  libusb_handle_events_timeout_completed(context_, &doNotWait, nullptr);
  takeIn();
}

void LibusbBus::takeIn() {
  for (auto& [event, device] : std::exchange(queue_, {})) {
    if (event == UsbEvent::FirstMatch)
      arrived(std::move(device));
    else
      left(device.get());
  }
}

void LibusbBus::arrived(LibusbDevice device) {
  libusb_device_descriptor descriptor{};
  if (libusb_get_device_descriptor(device.get(), &descriptor) < 0) return;
  attachments_.push_back(std::make_shared<UsbAttachment>(
      UsbAttachment{std::move(device), descriptor.idVendor, descriptor.idProduct}));
  tellPorts(UsbEvent::FirstMatch, attachments_.back());
}

void LibusbBus::left(libusb_device* device) {
  const auto found = std::find_if(attachments_.begin(), attachments_.end(),
                                  [&](const auto& each) { return each->device.get() == device; });
  if (found == attachments_.end()) return;
  const auto attachment = *found;
  attachments_.erase(found);
  attachment->attached = false;
  tellPorts(UsbEvent::Terminate, attachment);
}

void LibusbBus::tellPorts(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment) {
  for (const auto& port : ports_) port->note(event, attachment);
}

Status LibusbBus::masterPort(MasterPort& port) {
  port = started_ == kSuccess ? 1 : 0;
  return started_;
}

void LibusbBus::releaseMasterPort(MasterPort) {}

std::optional<Dictionary> LibusbBus::matchingDictionary(std::string_view className) {
  if (className != class_name::kUsbDevice) return std::nullopt;
  return Dictionary();
}

UsbNotificationPort& LibusbBus::createNotificationPort(MasterPort) {
  ports_.push_back(std::make_unique<LibusbNotificationPort>(libusbDescriptors(), [this] { pump(); }));
  return *ports_.back();
}

Status LibusbBus::addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                          UsbCallback callback, UsbIterator*& iterator) {
  const auto known =
      std::find_if(ports_.begin(), ports_.end(), [&](const auto& each) { return each.get() == &port; });
  if (known == ports_.end() || started_ != kSuccess) return kErrorBadArgument;
  // What came before this request is there already and no event of its own.
  pump();
  const auto makeService = [this](const auto& attachment) { return serviceFor(attachment); };
  auto& registration =
      (*known)->add(std::make_unique<UsbRegistration>(makeService, event, matching, std::move(callback)));
  if (event == UsbEvent::FirstMatch)
    for (const auto& attachment : attachments_) registration.note(event, attachment);
  iterator = &registration;
  return kSuccess;
}

std::vector<int> LibusbBus::libusbDescriptors() const {
  std::vector<int> descriptors;
  const auto** polled = context_ != nullptr ? libusb_get_pollfds(context_) : nullptr;
  if (polled == nullptr) return descriptors;
  // Those of open devices are for transfers, which are all synchronous here, and they come and go.
  for (auto* each = polled; *each != nullptr; ++each)
    if (((*each)->events & POLLIN) != 0) descriptors.push_back((*each)->fd);
  libusb_free_pollfds(polled);
  return descriptors;
}

UsbService LibusbBus::serviceFor(const std::shared_ptr<UsbAttachment>& attachment) {
  services_[++lastHandle_] = attachment;
  return lastHandle_;
}

Status LibusbBus::createPlugIn(UsbService service, UsbPlugIn& plugIn) {
  plugIn = 0;
  const auto found = services_.find(service);
  if (found == services_.end()) return kErrorNotFound;
  if (!found->second->attached) return kErrorNoDevice;
  plugIn = ++lastHandle_;
  plugIns_[plugIn] = found->second;
  return kSuccess;
}

Status LibusbBus::releaseService(UsbService service) {
  return services_.erase(service) == 0 ? kErrorNotFound : kSuccess;
}

Status LibusbBus::queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) {
  device = nullptr;
  const auto found = plugIns_.find(plugIn);
  if (found == plugIns_.end()) return kErrorNotFound;
  const auto forget = [this](UsbDeviceReference reference) { interfaces_.erase(reference); };
  auto made = std::make_unique<LibusbDeviceInterface>(found->second, ++lastReference_, forget);
  device = made.get();
  interfaces_[lastReference_] = std::move(made);
  return kSuccess;
}

void LibusbBus::destroyPlugIn(UsbPlugIn plugIn) { plugIns_.erase(plugIn); }

UsbDeviceInterface* LibusbBus::deviceInterface(UsbDeviceReference reference) {
  const auto found = interfaces_.find(reference);
  return found == interfaces_.end() ? nullptr : found->second.get();
}

}  // namespace touchpanel
