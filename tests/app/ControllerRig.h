#pragma once

#include <map>

#include "app/MyController.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/FakeControls.h"
#include "support/FakeMonitors.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeRegistry.h"
#include "support/FakeRunLoop.h"
#include "support/FakeScreen.h"
#include "support/FakeUsb.h"
#include "support/FakeWallClock.h"
#include "support/RecordingDiagnostics.h"
#include "support/RecordingWaitNotice.h"

namespace touchpanel::testing {

using FakeInterface = Interface<FakeKit>;

struct RecordingFactsView final : FactsView {
  void show(const DeviceFacts& facts) override { shown = facts; }

  DeviceFacts shown;
};

struct RecordingHistoryView final : HistoryView {
  void show(const ShownHistory& history) override { shown = history; }

  ShownHistory shown;
};

struct RecordingScreenView final : ScreenView {
  void show(const ShownScreens& screens) override { shown = screens; }

  ShownScreens shown;
};

struct RecordingEmptyListPage final : EmptyListPage {
  void show(const ListNotice& notice) override { shown.push_back(notice); }
  void clear() override { shown.clear(); }

  std::vector<ListNotice> shown;
};

/// What a controller needs beside a registry, USB and files: doubles.
struct ControllerRig {
  ControllerPorts portsOn(Registry& registry, UsbNotifications& notifications, UsbServices& services,
                          PropertyListFiles& files, const ConfigPaths& paths) {
    return {{application, alerts, clock, runLoop, registry, notifications, services, files, diagnostics,
             waitNotice, process, paths},
            sheets,
            screen,
            monitors,
            cursor,
            presentation,
            statusLine,
            {historyFiles, wallClock, "/state"},
            facts,
            earlierView,
            screens,
            emptyList};
  }

  FakeInterface interface;
  FakeApplication application;
  FakeAlerts alerts;
  FakeSheets sheets;
  FakeScreen screen;
  FakeMonitors monitors;
  FakeCursor cursor;
  FakePresentation presentation;
  FakeClock clock;
  FakeRunLoop runLoop;
  RecordingDiagnostics diagnostics;
  RecordingStatusLine statusLine;
  RecordingWaitNotice waitNotice;
  FakePropertyListFiles historyFiles;
  FakeWallClock wallClock;
  RecordingFactsView facts;
  RecordingHistoryView earlierView;
  RecordingScreenView screens;
  RecordingEmptyListPage emptyList;
  ProcessState process;
};

/// A controller on a machine that discovery is not asked about: touchscreens are listed by hand.
struct ListedTouchscreens : ControllerRig {
  /// Lists a calibrated touchscreen with its driver instance and HID system, all settings at their defaults. The
  /// first one listed is the selection.
  DeviceEntry list(std::uint16_t productId, std::string_view name) {
    const auto number = static_cast<std::int32_t>(devices.size()) + 1;
    const auto driver = registry.addDriver(number);
    registry.add(class_name::kHidSystem, driver,
                 {{property::kHidParameters, Dictionary{{property::kHidClickTime, 500'000'000},
                                                        {property::kHidClickSpace, Array{5, 5}}}}});
    auto& device = devices[number];
    device.ownReference = number;
    device.productId = productId;
    usb.add(device);
    _DEVICT_CONTEXT context{};
    name.copy(context.BarCode, sizeof context.BarCode);
    controller.LoadDeviceConfig(context, device, driver, 0x14100000U + static_cast<std::uint32_t>(number));
    const auto& entry = controller.state().deviceListArray.back();
    entry->set(entry_key::kCalibrateStatus, entry_key::kYes);
    if (!controller.state().hasSelection()) controller.shouldSelectRow(0);
    statusLine.messages.clear();
    interface.deviceTableView.reloads = 0;
    return entry;
  }
  static RegistryObject handleOf(const DeviceEntry& entry) {
    return registryObjectOf(*entry, entry_key::kHandle);
  }
  static RegistryObject hidSystemOf(const DeviceEntry& entry) {
    return registryObjectOf(*entry, entry_key::kHiddevice);
  }
  const Dictionary& selected() const { return *controller.state().currentDict; }
  const StatusMessage& status() const { return statusLine.messages.back(); }

  FakeRegistry registry;
  std::map<UsbDeviceReference, FakeUsbDevice> devices;
  FakeUsb usb;
  FakePropertyListFiles files;
  MyController controller{outletsOf(interface),
                          portsOn(registry, usb, usb, files, {"driver.plist", "device.plist"})};
};

}  // namespace touchpanel::testing
