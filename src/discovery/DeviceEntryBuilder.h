#pragma once

#include <cstdint>

#include "discovery/DeviceEntry.h"
#include "platform/Usb.h"

namespace touchpanel {

/// What identifies a touchscreen beside its context.
struct DeviceIdentity {
  RegistryObject handle = 0;  ///< its driver instance
  UsbDeviceReference deviceInterface = 0;
  std::uint32_t locationId = 0;
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
};

/// The entry of a touchscreen, without the double-click keys. The twelve settings are copied out of
/// `settings`; throws AbsentValue at the first that it lacks.
Dictionary buildDeviceEntry(const _DEVICT_CONTEXT& context, const Dictionary& settings,
                            const DeviceIdentity& identity);

/// Adds the system's double-click time and area and the HID system object that tells them, as far as they
/// can be read below one of the driver's instances; the last instance that tells wins.
void addDoubleClick(Registry& registry, Dictionary& entry);

}  // namespace touchpanel
