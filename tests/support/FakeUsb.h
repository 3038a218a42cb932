#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "providers/usb/HotplugBus.h"
#include "support/FakeUsbDevice.h"

namespace touchpanel::testing {

/// A bus of scripted devices, which the test owns and plugs in and out.
class FakeUsb final : public HotplugBus {
 public:
  struct Request {
    UsbEvent event = UsbEvent::FirstMatch;
    Dictionary matching;
    bool operator==(const Request&) const = default;
  };

  void plugIn(FakeUsbDevice& device) { arrived(attachmentOf(device)); }
  void plugOut(FakeUsbDevice& device) { left(&device); }
  /// Makes `device` known by its reference, without plugging it in.
  void add(FakeUsbDevice& device) { addInterface(attachmentOf(device)); }

  Status masterPort(MasterPort& port) override {
    port = masterPortValue;
    return masterPortStatus;
  }
  void releaseMasterPort(MasterPort) override { ++releasedMasterPorts; }
  std::optional<Dictionary> matchingDictionary(std::string_view className) override {
    return canMatch ? HotplugBus::matchingDictionary(className) : std::nullopt;
  }
  UsbNotificationPort& createNotificationPort(MasterPort port) override {
    return *ports.emplace_back(&HotplugBus::createNotificationPort(port));
  }
  Status addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                 UsbCallback callback, UsbIterator*& iterator) override {
    if (requests.size() == requestsUntilFailure) return kErrorNoMemory;
    requests.push_back({event, matching});
    return HotplugBus::addMatchingNotification(port, event, std::move(matching), std::move(callback),
                                               iterator);
  }
  Status createPlugIn(UsbService service, UsbPlugIn& plugIn) override {
    return step("create plug-in", [&] { return HotplugBus::createPlugIn(service, plugIn); });
  }
  Status releaseService(UsbService service) override {
    return step("release service", [&] { return HotplugBus::releaseService(service); });
  }
  Status queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) override {
    return step("query", [&] { return HotplugBus::queryDeviceInterface(plugIn, device); });
  }
  void destroyPlugIn(UsbPlugIn plugIn) override {
    step("destroy plug-in", [&] { return HotplugBus::destroyPlugIn(plugIn), kSuccess; });
  }

  // How it behaves.
  Status masterPortStatus = kSuccess;
  MasterPort masterPortValue = 1;
  bool canMatch = true;
  std::size_t requestsUntilFailure = SIZE_MAX;
  std::map<std::string, Status> failures;  ///< what the next such step returns instead of being carried out
  std::function<void(const std::string&)> onStep;  ///< called before each step towards a device

  // What happened.
  std::vector<Request> requests;
  std::vector<UsbNotificationPort*> ports;
  int releasedMasterPorts = 0;

 private:
  template <typename CarryOut>
  Status step(const std::string& name, CarryOut carryOut) {
    if (onStep) onStep(name);
    const auto failure = failures.extract(name);
    return failure ? failure.mapped() : carryOut();
  }
  static std::shared_ptr<UsbAttachment> attachmentOf(FakeUsbDevice& device) {
    return std::make_shared<UsbAttachment>(UsbAttachment{&device, device.vendorId, device.productId});
  }
  std::shared_ptr<UsbDeviceInterface> makeInterface(UsbInterfaceOrigin origin) override {
    auto& device = *static_cast<FakeUsbDevice*>(origin.attachment->device);
    device.ownReference = origin.reference;
    device.onRelease = std::move(origin.onRelease);
    return {std::shared_ptr<void>(), &device};  // not owned
  }
};

}  // namespace touchpanel::testing
