#pragma once

#include <vector>

#include "app/EarlierCalibrations.h"
#include "config/DataSet.h"
#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform/LibraryInUse.h"
#include "platform/Monitors.h"
#include "platform/PropertyListFiles.h"
#include "platform/Registry.h"
#include "platform/Usb.h"

namespace touchpanel {

/// The platform under the windows: real devices or simulated ones. Nothing is owned.
struct PanelPlatform {
  UsbNotifications& usbNotifications;
  UsbServices& usbServices;
  Registry& registry;
  Monitors& monitors;
  PropertyListFiles& files;
  Clock& clock;
  Diagnostics& diagnostics;
  ConfigPaths paths;
  HistoryPorts history;
  std::vector<LibraryInUse> libraries = {};  ///< without Qt, which the panel adds itself
};

}  // namespace touchpanel
