#pragma once

#include <memory>
#include <vector>

#include "config/SettingsKeys.h"
#include "platform/Value.h"

namespace touchpanel {

/// One listed touchscreen: a dictionary from the keys below and the twelve settings keys. The device list
/// owns it; the selection and a running calibration hold it too, so that an entry which is dropped from the
/// list stays valid for as long as anyone works on it.
using DeviceEntry = std::shared_ptr<Dictionary>;

/// The list, in the order in which the devices were added.
using DeviceListArray = std::vector<DeviceEntry>;

namespace entry_key {
inline constexpr char kCalibrateStatus[] = "CalibrateStatus";  ///< text "YES" or "NO"
inline constexpr char kSN[] = "SN";
inline constexpr char kFirmwareVersion[] = "FirmwareVersion";
inline constexpr char kMonitorID[] = "MonitorID";
inline constexpr char kHandle[] = "Handle";                    ///< int32: the driver instance
inline constexpr char kDeviceInterface[] = "DeviceInterface";  ///< int32: UsbDeviceReference
inline constexpr char kLocationID[] = "LocationID";            ///< int32
inline constexpr char kVendorID[] = "VendorID";
inline constexpr char kProductID[] = "ProductID";
inline constexpr char kDeviceContext[] = "DeviceContext";      ///< 293 bytes
inline constexpr char kDoubleClickTime[] = "DoubleClickTime";  ///< ms; absent when the system does not tell
inline constexpr char kDoubleClickArea[] = "DoubleClickArea";
inline constexpr char kHiddevice[] = "Hiddevice";
inline constexpr char kYes[] = "YES";
inline constexpr char kNo[] = "NO";
}  // namespace entry_key

}  // namespace touchpanel
