#pragma once

#include "config/DataSet.h"
#include "discovery/ProcessState.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/Controls.h"
#include "platform/Diagnostics.h"
#include "platform/Registry.h"
#include "platform/StatusLine.h"
#include "platform/View.h"
#include "platform/WaitNotice.h"

namespace touchpanel {

/// The platform as the control panel needs it, put together once where the program starts. Nothing is owned;
/// everything must outlive the controller.
struct ControllerPorts {
  Application& application;
  Alerts& alerts;
  Sheets& sheets;
  Screen& screen;
  Cursor& cursor;
  Presentation& presentation;
  Clock& clock;
  RunLoop& runLoop;
  Registry& registry;
  UsbNotifications& usbNotifications;
  UsbServices& usbServices;
  PropertyListFiles& files;
  Diagnostics& diagnostics;
  StatusLine& statusLine;
  WaitNotice& waitNotice;
  ProcessState& process;
  ConfigPaths paths;
};

}  // namespace touchpanel
