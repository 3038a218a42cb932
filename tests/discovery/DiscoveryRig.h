#pragma once

#include <algorithm>
#include <functional>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "discovery/UsbDiscovery.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeRegistry.h"
#include "support/FakeRunLoop.h"
#include "support/FakeUsb.h"
#include "support/FirmwareUsbDevice.h"
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
  void arriving() override {}
  void notListed(const NotListed& reason) override { refusals.push_back(reason); }
  void readInPart(ContentSet failed) override { unread.push_back(failed); }
  void settingsUnreadable() override { ++unreadableSettings; }

  DeviceListArray list;
  Dictionary settings;
  std::vector<NotListed> refusals;
  std::vector<ContentSet> unread;
  int unreadableSettings = 0;
  std::function<void(const std::string&)> onCall;
};

/// Discovery on fakes of everything around it. What happens, save for single transfers and the short waits
/// between them, goes into one journal, so that a test can compare the order across all of them.
class DiscoveryRig {
 public:
  using Journal = std::vector<std::string>;

  /// A touchscreen with firmware, not attached yet.
  struct Touchscreen {
    Touchscreen(DeviceKind kind, std::uint32_t serial)
        : firmware(
              firmware::exampleDevice(kind == DeviceKind::Unknown ? DeviceKind::Infrared : kind, serial)) {}
    firmware::Firmware firmware;
    FirmwareUsbDevice device{firmware};
    RegistryObject driver = 0;
  };

  DiscoveryRig() {
    clock.onSleep = [this](std::chrono::milliseconds duration) {
      if (duration < kLongWait) return;
      note("sleep " + std::to_string(duration.count()) + (waitNotice.isShown ? "" : " without a notice"));
    };
    alerts.onShow = [this] {
      const auto& panel = alerts.panels.back();
      note("alert " + panel.title + ": " + panel.message + " [" + panel.button + "]" +
           (waitNotice.isShown ? " under a notice" : ""));
      if (onAlert) onAlert();
    };
    usb.onStep = owner.onCall = [this](const std::string& call) { note(call); };
  }

  Touchscreen& make(std::uint32_t location, std::uint16_t productId) {
    auto& made = touchscreens.emplace_back(kindOf(productId), location);
    made.device.locationId = location;
    made.device.productId = productId;
    made.device.onCall = [this](const FakeUsbDevice::Call& call) {
      if (call.name != "out" && call.name != "in") note(call.name);
    };
    return made;
  }
  void plugIn(Touchscreen& touchscreen) {
    touchscreen.driver = registry.addDriver(touchscreen.device.locationId);
    usb.plugIn(touchscreen.device);
  }
  void plugOut(Touchscreen& touchscreen) {
    registry.remove(touchscreen.driver);
    usb.plugOut(touchscreen.device);
  }
  Touchscreen& attached(std::uint32_t location, std::uint16_t productId) {
    auto& made = make(location, productId);
    plugIn(made);
    return made;
  }
  bool start() { return discovery.registerForUSBNotifications(); }

  std::vector<std::uint32_t> listedLocations() const {
    std::vector<std::uint32_t> locations;
    for (const auto& entry : owner.list)
      locations.push_back(static_cast<std::uint32_t>(entry->integer(entry_key::kLocationID)));
    return locations;
  }
  /// Whether `events` are what the journal begins with.
  ::testing::AssertionResult begins(const Journal& events) const {
    const Journal first(journal.begin(), journal.begin() + static_cast<std::ptrdiff_t>(
                                                               std::min(journal.size(), events.size())));
    if (first == events) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << ::testing::PrintToString(first);
  }
  void note(std::string event) { journal.push_back(std::move(event)); }

  Journal journal;
  std::function<void()> onAlert;
  FakeApplication application;
  FakeAlerts alerts;
  FakeClock clock;
  FakeRunLoop runLoop;
  FakeRegistry registry;
  FakeUsb usb;
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
  UsbDiscovery discovery{{application, alerts, clock, runLoop, registry, usb, usb, files, diagnostics,
                          waitNotice, process, paths},
                         owner};

 private:
  static constexpr std::chrono::milliseconds kLongWait{100};
};

}  // namespace touchpanel::testing
