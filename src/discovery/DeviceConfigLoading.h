#pragma once

#include <cstdint>

#include "config/DataSet.h"
#include "discovery/DeviceList.h"
#include "platform/Diagnostics.h"
#include "platform/Registry.h"
#include "platform/Usb.h"

namespace touchpanel {

/// The last step of adding a touchscreen: completes its context from the device configuration file where its
/// kind needs that, reloads the driver settings, builds the entry, appends it to the list and reloads the
/// table.
class DeviceConfigLoading {
 public:
  DeviceConfigLoading(Registry& registry, PropertyListFiles& files, const ConfigPaths& paths,
                      Diagnostics& diagnostics, DeviceListOwner& owner);

  /// `context` is what was read from the device and gets completed. A driver configuration file that lacks a
  /// setting leaves the device unlisted and prints one line; the owner is told, as of one that cannot be read.
  void LoadDeviceConfig(_DEVICT_CONTEXT& context, UsbDeviceInterface& device, RegistryObject handle,
                        std::uint32_t locationId);

 private:
  void completeFromFile(_DEVICT_CONTEXT& context) const;

  Registry& registry_;
  DataSet dataSet_;
  std::string settingsFile_;
  Diagnostics& diagnostics_;
  DeviceListOwner& owner_;
};

}  // namespace touchpanel
