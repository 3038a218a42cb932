#include "providers/linux/usb/LibusbNotificationPort.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace touchpanel {

LibusbNotificationPort::LibusbNotificationPort(std::vector<int> libusbDescriptors, std::function<void()> pump)
    : libusbDescriptors_(std::move(libusbDescriptors)),
      pump_(std::move(pump)),
      wake_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
  if (wake_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

LibusbNotificationPort::~LibusbNotificationPort() { ::close(wake_); }

std::vector<int> LibusbNotificationPort::descriptors() const {
  auto all = libusbDescriptors_;
  all.push_back(wake_);
  return all;
}

void LibusbNotificationPort::perform() {
  eventfd_t count = 0;
  ::eventfd_read(wake_, &count);
  pump_();
  // What is noticed during a callback makes the source readable again.
  for (auto* registration : std::exchange(messages_, {})) registration->deliver();
}

UsbRegistration& LibusbNotificationPort::add(std::unique_ptr<UsbRegistration> registration) {
  registrations_.push_back(std::move(registration));
  return *registrations_.back();
}

void LibusbNotificationPort::note(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment) {
  for (const auto& registration : registrations_) {
    if (!registration->note(event, attachment)) continue;
    messages_.push_back(registration.get());
    wake();
  }
}

void LibusbNotificationPort::wake() { ::eventfd_write(wake_, 1); }

}  // namespace touchpanel
