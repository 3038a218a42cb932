#pragma once

#include "config/DataSet.h"
#include "discovery/WriteOutcome.h"
#include "platform/Usb.h"
#include "platform/WaitNotice.h"
#include "protocol/Exchange.h"

namespace touchpanel {

/// Puts a device context where a device of its kind keeps it: into the touchscreen itself over USB, or, for
/// the configuration-only kind, into the device configuration file. An unknown product, or a device whose
/// interface is no more, writes nothing. Blocks for the time of the exchange (see protocol/Exchange.h) and
/// says so meanwhile.
class ContextStore {
 public:
  ContextStore(UsbServices& usb, PropertyListFiles& files, ConfigPaths paths, ExchangePorts ports,
               WaitNotice& waitNotice);
  WriteOutcome save(std::int32_t productId, UsbDeviceReference device, const _DEVICT_CONTEXT& context);

 private:
  using SaveExchange = int (*)(UsbDeviceInterface&, const _DEVICT_CONTEXT&, const ExchangePorts&,
                               ExchangeOutcome*);
  WriteOutcome saveToDevice(SaveExchange exchange, UsbDeviceReference device, const _DEVICT_CONTEXT& context);

  UsbServices& usb_;
  PropertyListFiles& files_;
  ConfigPaths paths_;
  ExchangePorts ports_;
  WaitNotice& waitNotice_;
};

}  // namespace touchpanel
