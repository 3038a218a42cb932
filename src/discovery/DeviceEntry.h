#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "contract/TouchSettings.h"
#include "platform/Registry.h"
#include "platform/Value.h"
#include "protocol/DeviceContext.h"

namespace touchpanel {

/// One listed touchscreen: a dictionary from the keys below and those of the settings. It is never copied:
/// a change made through the selection is a change of the listed entry. The device list owns it; the
/// selection and a running calibration hold it too, so that an entry which is dropped from the list stays
/// valid for as long as anyone works on it.
using DeviceEntry = std::shared_ptr<Dictionary>;

/// The list, in the order in which the devices were added.
using DeviceListArray = std::vector<DeviceEntry>;

namespace entry_key {
inline constexpr char kCalibrateStatus[] = "CalibrateStatus";  ///< text "YES" or "NO"
inline constexpr char kSN[] = "SN";
inline constexpr char kFirmwareVersion[] = "FirmwareVersion";
inline constexpr char kMonitorID[] = "MonitorID";              ///< int32, always 0
inline constexpr char kHandle[] = "Handle";                    ///< int32: the driver instance
inline constexpr char kDeviceInterface[] = "DeviceInterface";  ///< int32: UsbDeviceReference
inline constexpr char kLocationID[] = "LocationID";            ///< int32
inline constexpr char kVendorID[] = "VendorID";
inline constexpr char kProductID[] = "ProductID";
inline constexpr char kDeviceContext[] = "DeviceContext";              ///< 293 bytes
using settings_key::kDoubleClickArea, settings_key::kDoubleClickTime;  ///< absent where the system has none
inline constexpr char kHiddevice[] = "Hiddevice";  ///< int64: RegistryObject of the HID system
/// int32: bits of a ContentSet; absent unless blocks could not be read, and so hold what they never held.
inline constexpr char kUnreadBlocks[] = "UnreadBlocks";
inline constexpr char kYes[] = "YES";
inline constexpr char kNo[] = "NO";
}  // namespace entry_key

/// What stands under "SN" where a touchscreen has no bar code.
namespace kind_name {
inline constexpr char kOptical[] = "Optical Touchscreen";
inline constexpr char kInfrared[] = "Infrared Touchscreen";
}  // namespace kind_name

/// The bar code; empty for a touchscreen without one.
inline std::string barCodeOf(const Dictionary& entry) {
  auto name = entry.text(entry_key::kSN);
  return name == kind_name::kOptical || name == kind_name::kInfrared ? std::string() : name;
}

/// The registry object stored under `key`; 0, which is none, when the key is absent.
inline RegistryObject registryObjectOf(const Dictionary& entry, std::string_view key) {
  return static_cast<RegistryObject>(entry.integer(key));
}

/// The entry's device context; all zero when it holds none, zero at the end when it holds less.
inline _DEVICT_CONTEXT contextOf(const Dictionary& entry) {
  _DEVICT_CONTEXT context{};
  if (const auto* image = entry.bytes(entry_key::kDeviceContext)) copyImage(*image, context);
  return context;
}

/// Puts the whole image of `context` into the entry; the texts made from it stay as they are.
inline void storeContext(Dictionary& entry, const _DEVICT_CONTEXT& context) {
  const auto image = imageOf(context);
  entry.set(entry_key::kDeviceContext, Bytes(image.begin(), image.end()));
}

}  // namespace touchpanel
