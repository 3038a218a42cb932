#pragma once

#include "config/DataSet.h"
#include "discovery/ProcessState.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "platform/Usb.h"
#include "platform/WaitNotice.h"

namespace touchpanel {

/// The platform as discovery needs it. Nothing is owned; everything must outlive discovery.
struct DiscoveryPorts {
  Application& application;
  Alerts& alerts;
  Clock& clock;
  RunLoop& runLoop;
  Registry& registry;
  UsbNotifications& usbNotifications;
  UsbServices& usbServices;
  PropertyListFiles& files;
  Diagnostics& diagnostics;
  WaitNotice& waitNotice;
  ProcessState& process;
  ConfigPaths paths;
};

}  // namespace touchpanel
