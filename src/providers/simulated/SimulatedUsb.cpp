#include "providers/simulated/SimulatedUsb.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

#include "contract/DriverProperties.h"
#include "platform_build/BuildConstants.h"

namespace touchpanel::simulated {

namespace {

constexpr char kVendorKey[] = "idVendor";
constexpr char kProductKey[] = "idProduct";
constexpr std::uint8_t kDirectionIn = 0x80;

bool matches(const Dictionary& matching, const SimulatedTouchscreen& touchscreen) {
  return matching.integer(kVendorKey) == TOUCH_VENDOR_ID &&
         matching.integer(kProductKey) == touchscreen.productId();
}

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

/// What one call of addMatchingNotification asked for, and the services that it has not handed out yet.
class SimulatedUsb::Registration final : public UsbIterator {
 public:
  Registration(UsbEvent event, Dictionary matching, UsbCallback callback)
      : event_(event), matching_(std::move(matching)), callback_(std::move(callback)) {}

  UsbService next() override {
    armed_ = pending_.empty();
    if (armed_) return 0;
    const auto service = pending_.front();
    pending_.pop_front();
    return service;
  }
  bool wants(UsbEvent event, const SimulatedTouchscreen& touchscreen) const {
    return event == event_ && matches(matching_, touchscreen);
  }
  void add(UsbService service) { pending_.push_back(service); }
  void deliver() {
    if (armed_ && !pending_.empty()) callback_(*this);
  }

 private:
  UsbEvent event_;
  Dictionary matching_;
  UsbCallback callback_;
  std::deque<UsbService> pending_;
  bool armed_ = false;
};

/// Wakes the run loop through an event descriptor, which is readable while something is pending. Events are
/// told in the order in which they happened, whichever registration they belong to: a touchscreen that is
/// plugged in again at once must be seen to leave before it is seen to arrive.
class SimulatedUsb::NotificationPort final : public UsbNotificationPort, public RunLoopSource {
 public:
  NotificationPort() : wake_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
    if (wake_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  }
  ~NotificationPort() override { ::close(wake_); }
  NotificationPort(const NotificationPort&) = delete;
  NotificationPort& operator=(const NotificationPort&) = delete;

  RunLoopSource& runLoopSource() override { return *this; }
  std::vector<int> descriptors() const override { return {wake_}; }
  void perform() override {
    eventfd_t count = 0;
    ::eventfd_read(wake_, &count);
    // What happens during a callback wakes the run loop again.
    for (auto told = std::exchange(messages_, {}); const auto& registration : told) registration->deliver();
  }

  Registration& add(UsbEvent event, Dictionary matching, UsbCallback callback) {
    registrations_.push_back(std::make_shared<Registration>(event, std::move(matching), std::move(callback)));
    return *registrations_.back();
  }
  template <typename MakeService>
  void announce(UsbEvent event, const SimulatedTouchscreen& touchscreen, MakeService makeService) {
    for (const auto& registration : registrations_) {
      if (!registration->wants(event, touchscreen)) continue;
      registration->add(makeService());
      messages_.push_back(registration);
      ::eventfd_write(wake_, 1);
    }
  }

 private:
  int wake_;
  std::vector<std::shared_ptr<Registration>> registrations_;
  std::vector<std::shared_ptr<Registration>> messages_;  ///< one for each event not told yet
};

/// One opened or openable path to an attached touchscreen.
class SimulatedUsb::Interface final : public UsbDeviceInterface {
 public:
  Interface(SimulatedUsb& usb, std::shared_ptr<Attachment> attachment, UsbDeviceReference reference)
      : usb_(usb), attachment_(std::move(attachment)), reference_(reference) {}

  Status open() override {
    if (!attachment_->attached) return kErrorNoDevice;
    if (attachment_->openedBy != nullptr && attachment_->openedBy != this) return kErrorExclusiveAccess;
    attachment_->openedBy = this;
    return kSuccess;
  }
  Status close() override {
    if (attachment_->openedBy != this) return kErrorNotOpen;
    attachment_->openedBy = nullptr;
    return kSuccess;
  }
  Status deviceRequest(DeviceRequest& request) override {
    if (usb_.beforeTransfer) usb_.beforeTransfer(request);
    if (!attachment_->attached) return kErrorNoDevice;
    if (attachment_->openedBy != this) return kErrorNotOpen;
    auto& firmware = attachment_->touchscreen->firmware();
    std::size_t length = request.wLength;
    const auto result = (request.bmRequestType & kDirectionIn) != 0
                            ? firmware.reply({request.pData, request.wLength}, length)
                            : firmware.receive({request.pData, request.wLength});
    request.wLenDone = result == firmware::TransferResult::Done ? static_cast<std::uint32_t>(length) : 0;
    return statusOf(result);
  }
  Status getConfiguration(std::uint8_t& configuration) override {
    return answer(configuration, [&] { return attachment_->touchscreen->model().configuration; });
  }
  Status getLocationID(std::uint32_t& locationId) override {
    return answer(locationId, [&] { return attachment_->touchscreen->locationId(); });
  }
  Status getDeviceVendor(std::uint16_t& vendorId) override {
    return answer(vendorId, [] { return TOUCH_VENDOR_ID; });
  }
  Status getDeviceProduct(std::uint16_t& productId) override {
    return answer(productId, [&] { return attachment_->touchscreen->productId(); });
  }
  void release() override {
    close();
    usb_.interfaces_.erase(reference_);  // destroys this
  }
  UsbDeviceReference reference() const override { return reference_; }

 private:
  template <typename Number, typename Read>
  Status answer(Number& out, Read read) {
    if (!attachment_->attached) return kErrorNoDevice;
    out = read();
    return kSuccess;
  }

  SimulatedUsb& usb_;
  std::shared_ptr<Attachment> attachment_;
  UsbDeviceReference reference_;
};

SimulatedUsb::SimulatedUsb() = default;
SimulatedUsb::~SimulatedUsb() = default;

void SimulatedUsb::attach(SimulatedTouchscreen& touchscreen) {
  touchscreen.firmware().powerCycle();
  attachments_.push_back(std::make_shared<Attachment>(Attachment{&touchscreen}));
  announce(UsbEvent::FirstMatch, attachments_.back());
}

void SimulatedUsb::detach(SimulatedTouchscreen& touchscreen) {
  const auto found = std::find_if(attachments_.begin(), attachments_.end(),
                                  [&](const auto& a) { return a->touchscreen == &touchscreen; });
  if (found == attachments_.end()) return;
  const auto attachment = *found;
  attachments_.erase(found);
  attachment->attached = false;
  announce(UsbEvent::Terminate, attachment);
}

Status SimulatedUsb::masterPort(MasterPort& port) {
  port = 1;
  return kSuccess;
}

void SimulatedUsb::releaseMasterPort(MasterPort) {}

std::optional<Dictionary> SimulatedUsb::matchingDictionary(std::string_view className) {
  if (className != class_name::kUsbDevice) return std::nullopt;
  return Dictionary();
}

UsbNotificationPort& SimulatedUsb::createNotificationPort(MasterPort) {
  ports_.push_back(std::make_unique<NotificationPort>());
  return *ports_.back();
}

Status SimulatedUsb::addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                             UsbCallback callback, UsbIterator*& iterator) {
  const auto known =
      std::find_if(ports_.begin(), ports_.end(), [&](const auto& p) { return p.get() == &port; });
  if (known == ports_.end()) return kErrorBadArgument;
  auto& registration = (*known)->add(event, std::move(matching), std::move(callback));
  if (event == UsbEvent::FirstMatch)
    for (const auto& attachment : attachments_)
      if (registration.wants(event, *attachment->touchscreen)) registration.add(serviceFor(attachment));
  iterator = &registration;
  return kSuccess;
}

UsbService SimulatedUsb::serviceFor(const std::shared_ptr<Attachment>& attachment) {
  services_[++lastHandle_] = attachment;
  return lastHandle_;
}

void SimulatedUsb::announce(UsbEvent event, const std::shared_ptr<Attachment>& attachment) {
  for (const auto& port : ports_)
    port->announce(event, *attachment->touchscreen, [&] { return serviceFor(attachment); });
}

Status SimulatedUsb::createPlugIn(UsbService service, UsbPlugIn& plugIn) {
  plugIn = 0;
  const auto found = services_.find(service);
  if (found == services_.end()) return kErrorNotFound;
  plugIn = ++lastHandle_;
  plugIns_[plugIn] = found->second;
  return kSuccess;
}

Status SimulatedUsb::releaseService(UsbService service) {
  return services_.erase(service) == 0 ? kErrorNotFound : kSuccess;
}

Status SimulatedUsb::queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) {
  device = nullptr;
  const auto found = plugIns_.find(plugIn);
  if (found == plugIns_.end()) return kErrorNotFound;
  auto made = std::make_unique<Interface>(*this, found->second, ++lastReference_);
  device = made.get();
  interfaces_[lastReference_] = std::move(made);
  return kSuccess;
}

void SimulatedUsb::destroyPlugIn(UsbPlugIn plugIn) { plugIns_.erase(plugIn); }

UsbDeviceInterface* SimulatedUsb::deviceInterface(UsbDeviceReference reference) {
  const auto found = interfaces_.find(reference);
  return found == interfaces_.end() ? nullptr : found->second.get();
}

}  // namespace touchpanel::simulated
