#pragma once

#include <map>

#include "FakeInterface.h"
#include "app/ControllerPorts.h"
#include "app/ControllerState.h"
#include "app/SettingsValues.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeRegistry.h"
#include "support/FakeRunLoop.h"
#include "support/FakeScreen.h"
#include "support/FakeUsb.h"
#include "support/RecordingDiagnostics.h"
#include "support/RecordingStatusLine.h"
#include "support/RecordingWaitNotice.h"

namespace touchpanel::testing {

/// Everything that a part of the control panel needs, made of doubles, with listed touchscreens to taste.
struct PanelRig {
  /// Lists a touchscreen with its driver instance and HID system; the first one listed is the selection. The
  /// settings are the defaults.
  DeviceEntry list(std::int32_t productId, std::string name) {
    const auto number = static_cast<std::int32_t>(state.deviceListArray.size()) + 1;
    const auto driver = registry.addDriver(number);
    const auto hidSystem = registry.add(class_name::kHidSystem, driver);
    auto entry = std::make_shared<Dictionary>(Dictionary{
        {entry_key::kCalibrateStatus, entry_key::kYes},
        {entry_key::kSN, std::move(name)},
        {settings_key::kEnableTouch, true},
        {entry_key::kHandle, static_cast<std::int32_t>(driver)},
        {entry_key::kDeviceInterface, number},
        {entry_key::kLocationID, 0x14100000 + number},
        {entry_key::kProductID, productId},
        {entry_key::kHiddevice, static_cast<std::int64_t>(hidSystem)},
    });
    storeSettings({}, *entry);
    usb.add(devices[number]);
    state.deviceListArray.push_back(entry);
    if (!state.hasSelection()) state.currentDict = entry;
    return entry;
  }
  static RegistryObject handleOf(const DeviceEntry& entry) {
    return registryObjectOf(*entry, entry_key::kHandle);
  }
  static RegistryObject hidSystemOf(const DeviceEntry& entry) {
    return registryObjectOf(*entry, entry_key::kHiddevice);
  }

  /// The same ports with another machine behind them.
  ControllerPorts portsOn(Registry& otherRegistry, UsbNotifications& notifications, UsbServices& services) {
    return {application,
            alerts,
            sheets,
            screen,
            cursor,
            presentation,
            clock,
            runLoop,
            otherRegistry,
            notifications,
            services,
            files,
            diagnostics,
            statusLine,
            waitNotice,
            process,
            ConfigPaths{"driver.plist", "device.plist"}};
  }

  FakeInterface interface;
  FakeApplication application;
  FakeAlerts alerts;
  FakeSheets sheets;
  FakeScreen screen;
  FakeCursor cursor;
  FakePresentation presentation;
  FakeClock clock;
  FakeRunLoop runLoop;
  FakeRegistry registry;
  std::map<UsbDeviceReference, FakeUsbDevice> devices;
  FakeUsb usb;
  FakePropertyListFiles files;
  RecordingDiagnostics diagnostics;
  RecordingStatusLine statusLine;
  RecordingWaitNotice waitNotice;
  ProcessState process;
  ControllerState state;
  Outlets outlets = interface.outlets();
  ControllerPorts ports = portsOn(registry, usb, usb);
};

}  // namespace touchpanel::testing
