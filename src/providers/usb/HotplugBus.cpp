#include "providers/usb/HotplugBus.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <system_error>

#include <sys/eventfd.h>
#include <unistd.h>

#include "contract/DriverProperties.h"

namespace touchpanel {

namespace {

constexpr char kVendorKey[] = "idVendor";
constexpr char kProductKey[] = "idProduct";

}  // namespace

Status AttachedInterface::getDeviceVendor(std::uint16_t& vendorId) {
  vendorId = attachment().vendorId;
  return kSuccess;
}

Status AttachedInterface::getDeviceProduct(std::uint16_t& productId) {
  productId = attachment().productId;
  return kSuccess;
}

void AttachedInterface::release() {
  const auto onRelease = std::move(origin_.onRelease);  // outlives this
  onRelease(origin_.reference);
}

/// What one call of addMatchingNotification asked for, and the devices that have not been fetched yet.
class HotplugBus::Registration final : public UsbIterator {
 public:
  Registration(HotplugBus& bus, UsbEvent event, const Dictionary& matching, UsbCallback callback)
      : bus_(bus),
        event_(event),
        vendorId_(matching.integer(kVendorKey)),
        productId_(matching.integer(kProductKey)),
        callback_(std::move(callback)) {}

  /// A device that left before it was fetched is not handed out as an arrival: nobody could open it any more.
  UsbService next() override {
    dropStale();
    armed_ = pending_.empty();
    if (armed_) return 0;
    bus_.services_[++bus_.lastHandle_] = std::move(pending_.front());
    pending_.pop_front();
    return bus_.lastHandle_;
  }
  /// Takes the event in when it is one that was asked for, and returns whether it was.
  bool note(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment) {
    const bool asked =
        event == event_ && attachment->vendorId == vendorId_ && attachment->productId == productId_;
    if (asked) pending_.push_back(attachment);
    return asked;
  }
  /// Calls the callback when there is anything to fetch and everything before it was fetched.
  void deliver() {
    dropStale();
    if (armed_ && !pending_.empty()) callback_(*this);
  }

 private:
  void dropStale() {
    if (event_ == UsbEvent::FirstMatch)
      std::erase_if(pending_, [](const auto& attachment) { return !attachment->attached; });
  }

  HotplugBus& bus_;
  UsbEvent event_;
  std::int64_t vendorId_;
  std::int64_t productId_;
  UsbCallback callback_;
  std::deque<std::shared_ptr<UsbAttachment>> pending_;
  bool armed_ = false;  ///< run out since the last fetch
};

/// Readable when the bus has something to handle, and through an event descriptor of its own when something
/// was noticed outside perform(): then nothing may be left to read on the descriptors of the bus.
class HotplugBus::NotificationPort final : public UsbNotificationPort, public RunLoopSource {
 public:
  explicit NotificationPort(HotplugBus& bus) : bus_(bus), wake_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
    if (wake_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  }
  ~NotificationPort() override { ::close(wake_); }
  NotificationPort(const NotificationPort&) = delete;
  NotificationPort& operator=(const NotificationPort&) = delete;

  RunLoopSource& runLoopSource() override { return *this; }
  std::vector<int> descriptors() const override {
    auto all = bus_.descriptors();
    all.push_back(wake_);
    return all;
  }
  void perform() override {
    eventfd_t count = 0;
    ::eventfd_read(wake_, &count);
    bus_.pump();
    // What is noticed during a callback makes the source readable again.
    for (auto* registration : std::exchange(messages_, {})) registration->deliver();
  }

  Registration& add(std::unique_ptr<Registration> registration) {
    return *registrations_.emplace_back(std::move(registration));
  }
  void note(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment) {
    for (const auto& registration : registrations_) {
      if (!registration->note(event, attachment)) continue;
      messages_.push_back(registration.get());
      wake();
    }
  }
  void wake() { ::eventfd_write(wake_, 1); }

 private:
  HotplugBus& bus_;
  int wake_;
  std::vector<std::unique_ptr<Registration>> registrations_;
  std::vector<Registration*> messages_;  ///< one for each event not delivered yet
};

HotplugBus::HotplugBus() = default;
HotplugBus::~HotplugBus() = default;

void HotplugBus::clear() {
  interfaces_.clear();
  plugIns_.clear();
  services_.clear();
  ports_.clear();
  attachments_.clear();
}

void HotplugBus::arrived(std::shared_ptr<UsbAttachment> attachment) {
  announce(UsbEvent::FirstMatch, attachments_.emplace_back(std::move(attachment)));
}

void HotplugBus::left(const void* device) {
  const auto found = std::find_if(attachments_.begin(), attachments_.end(),
                                  [&](const auto& each) { return each->device == device; });
  if (found == attachments_.end()) return;
  const auto attachment = *found;
  attachments_.erase(found);
  attachment->attached = false;
  announce(UsbEvent::Terminate, attachment);
}

void HotplugBus::announce(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment) {
  for (const auto& port : ports_) port->note(event, attachment);
}

void HotplugBus::wake() {
  for (const auto& port : ports_) port->wake();
}

Status HotplugBus::masterPort(MasterPort& port) {
  port = 1;
  return kSuccess;
}

std::optional<Dictionary> HotplugBus::matchingDictionary(std::string_view className) {
  if (className != class_name::kUsbDevice) return std::nullopt;
  return Dictionary();
}

UsbNotificationPort& HotplugBus::createNotificationPort(MasterPort) {
  return *ports_.emplace_back(std::make_unique<NotificationPort>(*this));
}

Status HotplugBus::addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                           UsbCallback callback, UsbIterator*& iterator) {
  const auto known =
      std::find_if(ports_.begin(), ports_.end(), [&](const auto& each) { return each.get() == &port; });
  if (known == ports_.end()) return kErrorBadArgument;
  // What came before this request is there already and no event of its own.
  pump();
  auto& registration =
      (*known)->add(std::make_unique<Registration>(*this, event, matching, std::move(callback)));
  if (event == UsbEvent::FirstMatch)
    for (const auto& attachment : attachments_) registration.note(event, attachment);
  iterator = &registration;
  return kSuccess;
}

Status HotplugBus::createPlugIn(UsbService service, UsbPlugIn& plugIn) {
  plugIn = 0;
  const auto found = services_.find(service);
  if (found == services_.end()) return kErrorNotFound;
  if (!found->second->attached) return kErrorNoDevice;
  plugIn = ++lastHandle_;
  plugIns_[plugIn] = found->second;
  return kSuccess;
}

Status HotplugBus::releaseService(UsbService service) {
  return services_.erase(service) == 0 ? kErrorNotFound : kSuccess;
}

Status HotplugBus::queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) {
  device = nullptr;
  const auto found = plugIns_.find(plugIn);
  if (found == plugIns_.end()) return kErrorNotFound;
  device = &addInterface(found->second);
  return kSuccess;
}

UsbDeviceInterface& HotplugBus::addInterface(std::shared_ptr<UsbAttachment> attachment) {
  const auto reference = ++lastReference_;
  auto forget = [this](UsbDeviceReference released) { interfaces_.erase(released); };
  auto& made = interfaces_[reference];
  made = makeInterface({std::move(attachment), reference, std::move(forget)});
  return *made;
}

UsbDeviceInterface* HotplugBus::deviceInterface(UsbDeviceReference reference) {
  const auto found = interfaces_.find(reference);
  return found == interfaces_.end() ? nullptr : found->second.get();
}

}  // namespace touchpanel
