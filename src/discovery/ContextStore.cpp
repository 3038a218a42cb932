#include "discovery/ContextStore.h"

#include <utility>

#include "contract/ProductId.h"
#include "platform/Translatable.h"

namespace touchpanel {

ContextStore::ContextStore(UsbServices& usb, PropertyListFiles& files, ConfigPaths paths, ExchangePorts ports,
                           WaitNotice& waitNotice)
    : usb_(usb), files_(files), paths_(std::move(paths)), ports_(ports), waitNotice_(waitNotice) {}

WriteOutcome ContextStore::save(std::int32_t productId, UsbDeviceReference device,
                                const _DEVICT_CONTEXT& context) {
  switch (kindOf(productId)) {
    case DeviceKind::ConfigurationOnly:
      return outcomeOfFile(writeDeviceConfig(files_, paths_, context));
    case DeviceKind::Infrared:
      return saveToDevice(saveDataToIrDevice, device, context);
    case DeviceKind::Optical:
      return saveToDevice(saveDataToOptDevice, device, context);
    case DeviceKind::Unknown:
      break;
  }
  return {WriteOutcome::Kind::NotWritten,
          TRANSLATABLE_TEXT("StatusLine", "touchscreens of its kind keep no calibration")};
}

WriteOutcome ContextStore::saveToDevice(SaveExchange exchange, UsbDeviceReference device,
                                        const _DEVICT_CONTEXT& context) {
  UsbDeviceInterface* const interface = usb_.deviceInterface(device);
  if (interface == nullptr) return {WriteOutcome::Kind::NotWritten, reasonOfDevice(kErrorNoDevice)};
  const WaitScope wait(waitNotice_, {TRANSLATABLE_TEXT("WaitNotice", "Writing to the touchscreen...")});
  ExchangeOutcome outcome;
  exchange(*interface, context, ports_, &outcome);
  return outcomeOfExchange(outcome);
}

}  // namespace touchpanel
