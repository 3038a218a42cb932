#include "discovery/ContextStore.h"

#include <utility>

#include "contract/ProductId.h"
#include "platform/Translatable.h"

namespace touchpanel {

ContextStore::ContextStore(UsbServices& usb, PropertyListFiles& files, ConfigPaths paths, ExchangePorts ports,
                           WaitNotice& waitNotice)
    : usb_(usb), files_(files), paths_(std::move(paths)), ports_(ports), waitNotice_(waitNotice) {}

void ContextStore::save(std::int32_t productId, UsbDeviceReference device, const _DEVICT_CONTEXT& context) {
  switch (kindOf(productId)) {
    case DeviceKind::ConfigurationOnly:
      writeDeviceConfig(files_, paths_, context);
      return;
    case DeviceKind::Infrared:
      return saveToDevice(saveDataToIrDevice, device, context);
    case DeviceKind::Optical:
      return saveToDevice(saveDataToOptDevice, device, context);
    case DeviceKind::Unknown:
      return;
  }
}

void ContextStore::saveToDevice(SaveExchange exchange, UsbDeviceReference device,
                                const _DEVICT_CONTEXT& context) {
  UsbDeviceInterface* const interface = usb_.deviceInterface(device);
  if (interface == nullptr) return;
  const WaitScope wait(waitNotice_, {TRANSLATABLE_TEXT("WaitNotice", "Writing to the touchscreen...")});
  exchange(*interface, context, ports_);
}

}  // namespace touchpanel
