#pragma once

#include <functional>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include "discovery/UsbDiscovery.h"
#include "firmware/Firmware.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeRegistry.h"
#include "support/FakeRunLoop.h"
#include "support/FakeUsb.h"
#include "support/RecordingWaitNotice.h"

namespace touchpanel::testing {

/// A device list whose owner only remembers what it was asked for.
class FakeDeviceListOwner final : public DeviceListOwner {
 public:
  DeviceListArray& deviceListArray() override { return list; }
  Dictionary& drvConfigDict() override { return settings; }
  void reloadDeviceTable() override {
    if (onCall) onCall("reload");
  }
  bool shouldSelectRow(std::int32_t row) override {
    if (onCall) onCall("select " + std::to_string(row));
    return true;
  }

  DeviceListArray list;
  Dictionary settings;
  std::function<void(const std::string&)> onCall;
};

/// Discovery on fakes of everything around it. What happens, save for single transfers and the short waits
/// between them, goes into one journal, so that a test can compare the order across all of them.
class DiscoveryRig {
 public:
  /// A touchscreen with firmware, not attached yet.
  struct Touchscreen {
    Touchscreen(DeviceKind kind, std::uint32_t serial)
        : firmware(
              firmware::exampleDevice(kind == DeviceKind::Unknown ? DeviceKind::Infrared : kind, serial)) {}
    firmware::Firmware firmware;
    FakeUsbDevice device;
    UsbService service = 0;
    RegistryObject driver = 0;
  };

  DiscoveryRig() {
    clock.onSleep = [this](std::chrono::milliseconds duration) {
      if (duration < kLongWait) return;
      const bool told = waitNotice.isShown;
      note("sleep " + std::to_string(duration.count()) + (told ? "" : " without a notice"));
    };
    alerts.onShow = [this] {
      const auto& panel = alerts.panels.back();
      note("alert " + panel.title + ": " + panel.message + " [" + panel.button + "]" +
           (waitNotice.isShown ? " under a notice" : ""));
      if (onAlert) onAlert();
    };
    services.onCall = [this](const std::string& call) { note(call); };
    owner.onCall = [this](const std::string& call) { note(call); };
  }

  /// `location` doubles as the reference of its interface, so entries and calls are easy to tell apart.
  Touchscreen& make(std::uint32_t location, std::uint16_t productId) {
    auto& made = touchscreens.emplace_back(kindOf(productId), location);
    made.device.locationId = location;
    made.device.productId = productId;
    made.device.ownReference = static_cast<UsbDeviceReference>(location);
    made.service = services.add(made.device);
    made.device.onCall = [this](const FakeUsbDevice::Call& call) { noteDeviceCall(call); };
    made.device.answer = [&made](const Bytes& packet) { return answerOf(made, packet); };
    return made;
  }
  void plugIn(Touchscreen& touchscreen) {
    touchscreen.driver = registry.addDriver(touchscreen.device.locationId);
    notifications.plugIn(touchscreen.service, touchscreen.device.productId);
  }
  void plugOut(Touchscreen& touchscreen) {
    registry.remove(touchscreen.driver);
    notifications.plugOut(touchscreen.service, touchscreen.device.productId);
  }
  Touchscreen& attached(std::uint32_t location, std::uint16_t productId) {
    auto& made = make(location, productId);
    plugIn(made);
    return made;
  }

  std::vector<std::uint32_t> listedLocations() const {
    std::vector<std::uint32_t> locations;
    for (const auto& entry : owner.list)
      locations.push_back(static_cast<std::uint32_t>(entry->integer(entry_key::kLocationID)));
    return locations;
  }
  void note(std::string event) { journal.push_back(std::move(event)); }
  std::vector<std::string> takeJournal() { return std::exchange(journal, {}); }

  std::vector<std::string> journal;
  std::function<void()> onAlert;
  FakeApplication application;
  FakeAlerts alerts;
  FakeClock clock;
  FakeRunLoop runLoop;
  FakeRegistry registry;
  FakeUsbNotifications notifications;
  FakeUsbServices services;
  FakePropertyListFiles files;
  struct JournalDiagnostics final : Diagnostics {
    explicit JournalDiagnostics(DiscoveryRig& rig) : rig_(rig) {}
    void line(std::string_view text) override { rig_.note("print " + std::string(text)); }
    DiscoveryRig& rig_;
  } diagnostics{*this};
  RecordingWaitNotice waitNotice;
  ProcessState process;
  FakeDeviceListOwner owner;
  ConfigPaths paths = ConfigPaths::in("/x");
  std::list<Touchscreen> touchscreens;
  UsbDiscovery discovery{{application, alerts, clock, runLoop, registry, notifications, services, files,
                          diagnostics, waitNotice, process, paths},
                         owner};

 private:
  static constexpr std::chrono::milliseconds kLongWait{100};

  static Bytes answerOf(Touchscreen& touchscreen, const Bytes& packet) {
    PacketBuffer reply{};
    std::size_t length = 0;
    if (touchscreen.firmware.receive(packet) != firmware::TransferResult::Done ||
        touchscreen.firmware.reply(reply, length) != firmware::TransferResult::Done) {
      touchscreen.device.outStatus = touchscreen.device.inStatus = kErrorNoDevice;
      return {};
    }
    return {reply.begin(), reply.begin() + static_cast<std::ptrdiff_t>(length)};
  }
  void noteDeviceCall(const FakeUsbDevice::Call& call) {
    using Operation = FakeUsbDevice::Operation;
    switch (call.operation) {
      case Operation::Open:
        return note("open");
      case Operation::Close:
        return note("close");
      case Operation::GetConfiguration:
        return note("configuration");
      case Operation::GetLocationID:
        return note("location");
      case Operation::GetDeviceVendor:
        return note("vendor");
      case Operation::GetDeviceProduct:
        return note("product");
      case Operation::Release:
        return note("release");
      case Operation::Out:
      case Operation::In:
        return;
    }
  }
};

}  // namespace touchpanel::testing
