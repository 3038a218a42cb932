#pragma once

#include "config/DataSet.h"
#include "platform/Usb.h"
#include "protocol/Exchange.h"

namespace touchpanel {

/// Puts a device context where a device of its kind keeps it: into the touchscreen itself over USB, or, for
/// the configuration-only kind, into the device configuration file. An unknown product writes nothing. The
/// outcome is not reported. Blocks for the time of the exchange (see protocol/Exchange.h).
class ContextStore {
 public:
  ContextStore(UsbServices& usb, PropertyListFiles& files, ConfigPaths paths, ExchangePorts ports);
  void save(std::int32_t productId, UsbDeviceReference device, const _DEVICT_CONTEXT& context);

 private:
  UsbServices& usb_;
  PropertyListFiles& files_;
  ConfigPaths paths_;
  ExchangePorts ports_;
};

}  // namespace touchpanel
