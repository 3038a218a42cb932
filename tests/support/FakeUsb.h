#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "contract/DriverProperties.h"
#include "platform/Usb.h"
#include "support/FakeUsbDevice.h"

namespace touchpanel::testing {

/// Matched services and the scripted devices behind them. Each step towards a device can be told to fail.
class FakeUsbServices final : public UsbServices {
 public:
  struct Service {
    FakeUsbDevice* device = nullptr;  ///< null: the interface query yields none
    Status createStatus = kSuccess;
    bool hasPlugIn = true;
    Status releaseStatus = kSuccess;
    Status queryStatus = kSuccess;
  };

  UsbService add(FakeUsbDevice& device) {
    services[++last_] = {.device = &device};
    return last_;
  }

  Status createPlugIn(UsbService service, UsbPlugIn& plugIn) override {
    note("create plug-in " + std::to_string(service));
    const auto& found = services.at(service);
    plugIn = found.hasPlugIn ? service : 0;
    return found.createStatus;
  }
  Status releaseService(UsbService service) override {
    note("release service " + std::to_string(service));
    return services.at(service).releaseStatus;
  }
  Status queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) override {
    note("query " + std::to_string(plugIn));
    device = services.at(plugIn).device;
    return services.at(plugIn).queryStatus;
  }
  void destroyPlugIn(UsbPlugIn plugIn) override { note("destroy plug-in " + std::to_string(plugIn)); }
  UsbDeviceInterface* deviceInterface(UsbDeviceReference reference) override {
    for (const auto& [handle, service] : services)
      if (service.device != nullptr && service.device->ownReference == reference &&
          !service.device->isReleased)
        return service.device;
    return nullptr;
  }

  std::map<UsbService, Service> services;
  std::function<void(const std::string&)> onCall;  ///< told of each step before it is carried out

 private:
  void note(const std::string& call) {
    if (onCall) onCall(call);
  }
  UsbService last_ = 0;
};

/// Notifications that the test sends by plugging services in and out. An event is delivered only from the
/// run loop source of the port that it was registered with, and only to an iterator that was run out before,
/// as on the real platform.
class FakeUsbNotifications final : public UsbNotifications {
 public:
  struct Registration {
    UsbEvent event = UsbEvent::FirstMatch;
    Dictionary matching;
    bool operator==(const Registration&) const = default;
  };

  /// Attaches `service`; `productId` decides who is told.
  void plugIn(UsbService service, std::uint16_t productId) {
    attached_.emplace_back(service, productId);
    announce(UsbEvent::FirstMatch, service, productId);
  }
  void plugOut(UsbService service, std::uint16_t productId) {
    std::erase(attached_, std::pair(service, productId));
    announce(UsbEvent::Terminate, service, productId);
  }

  Status masterPort(MasterPort& port) override {
    port = masterPortValue;
    return masterPortStatus;
  }
  void releaseMasterPort(MasterPort) override { ++releasedMasterPorts; }
  std::optional<Dictionary> matchingDictionary(std::string_view className) override {
    if (!canMatch) return std::nullopt;
    return Dictionary{{"class", std::string(className)}};
  }
  UsbNotificationPort& createNotificationPort(MasterPort) override {
    return *ports.emplace_back(std::make_unique<Port>());
  }
  Status addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                 UsbCallback callback, UsbIterator*& iterator) override {
    if (registrations.size() == registrationsUntilFailure) return kErrorNoMemory;
    registrations.push_back({event, matching});
    auto& watch = *static_cast<Port&>(port).watches.emplace_back(std::make_unique<Watch>());
    watch.event = event;
    watch.productId = static_cast<std::uint16_t>(matching.integer("idProduct"));
    watch.callback = std::move(callback);
    if (event == UsbEvent::FirstMatch)
      for (const auto& [service, productId] : attached_)
        if (productId == watch.productId) watch.pending.push_back(service);
    iterator = &watch;
    return kSuccess;
  }

  struct Watch final : UsbIterator {
    UsbService next() override {
      isArmed = pending.empty();
      if (isArmed) return 0;
      const auto service = pending.front();
      pending.pop_front();
      return service;
    }
    UsbEvent event = UsbEvent::FirstMatch;
    std::uint16_t productId = 0;
    UsbCallback callback;
    std::deque<UsbService> pending;
    bool isArmed = false;
  };
  struct Port final : UsbNotificationPort, RunLoopSource {
    RunLoopSource& runLoopSource() override { return *this; }
    std::vector<int> descriptors() const override { return {}; }
    void perform() override {
      while (!messages.empty()) {
        auto& watch = *messages.front();
        messages.pop_front();
        if (watch.isArmed && !watch.pending.empty()) watch.callback(watch);
      }
    }
    std::vector<std::unique_ptr<Watch>> watches;
    std::deque<Watch*> messages;  ///< one for each event, in the order of the events
  };

  // How it behaves.
  Status masterPortStatus = kSuccess;
  MasterPort masterPortValue = 1;
  bool canMatch = true;
  std::size_t registrationsUntilFailure = SIZE_MAX;

  // What happened.
  std::vector<Registration> registrations;
  std::vector<std::unique_ptr<Port>> ports;
  int releasedMasterPorts = 0;

 private:
  void announce(UsbEvent event, UsbService service, std::uint16_t productId) {
    for (const auto& port : ports)
      for (const auto& watch : port->watches)
        if (watch->event == event && watch->productId == productId) {
          watch->pending.push_back(service);
          port->messages.push_back(watch.get());
        }
  }
  std::vector<std::pair<UsbService, std::uint16_t>> attached_;
};

}  // namespace touchpanel::testing
