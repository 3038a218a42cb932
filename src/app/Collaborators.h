#pragma once

#include "app/CalibrationStarter.h"
#include "app/CommandButtons.h"
#include "app/DeviceCommands.h"
#include "app/DeviceTable.h"
#include "app/DiscoveredDevices.h"
#include "app/MyController.h"
#include "app/SettingsPanel.h"
#include "discovery/UsbDiscovery.h"

namespace touchpanel {

/// Who does the controller's work. All of them share its state.
struct MyController::Collaborators {
  Collaborators(const Outlets& outlets, const ControllerPorts& ports, ControllerState& state,
                TableReloader& controller)
      : buttons(outlets, state),
        settings(outlets, ports, state),
        table(outlets, state, settings),
        commands(outlets, ports, state),
        calibrations(ports, state, controller),
        devices(outlets, state, table, ports.statusLine),
        discoveryPorts{ports.application, ports.alerts,           ports.clock,       ports.runLoop,
                       ports.registry,    ports.usbNotifications, ports.usbServices, ports.files,
                       ports.diagnostics, ports.waitNotice,       ports.process,     ports.paths},
        discovery(discoveryPorts, devices) {}

  CommandButtons buttons;
  SettingsPanel settings;
  DeviceTable table;
  DeviceCommands commands;
  CalibrationStarter calibrations;
  DiscoveredDevices devices;
  DiscoveryPorts discoveryPorts;
  UsbDiscovery discovery;
};

}  // namespace touchpanel
