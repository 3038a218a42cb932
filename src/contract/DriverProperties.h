#pragma once

#include "contract/TouchSettings.h"

/// The names by which the control panel and the touch driver know each other: classes, property names and
/// keys; those of the settings are in TouchSettings.h. Both sides match them by their exact text, so the spelling of "configration" is part of the
/// contract.
namespace touchpanel {

namespace class_name {
inline constexpr char kTouchDriver[] = "VARNEXOTouchScreenDriver";
inline constexpr char kPointingDevice[] = "IOHIDPointingDevice";
inline constexpr char kHidSystem[] = "IOHIDSystem";
inline constexpr char kUsbDevice[] = "IOUSBDevice";
}  // namespace class_name

namespace property {
inline constexpr char kCalibration[] = "calibration";
inline constexpr char kConfigration[] = "configration";
inline constexpr char kMonitor[] = "monitor";  ///< see MonitorPlacement.h
inline constexpr char kLocationID[] = "LocationID";
inline constexpr char kHidParameters[] = "HIDParameters";
inline constexpr char kHidClickTime[] = "HIDClickTime";    ///< int32 written, int64 read: nanoseconds
inline constexpr char kHidClickSpace[] = "HIDClickSpace";  ///< array of two int32: horizontal, vertical
}  // namespace property

/// Keys of the "calibration" dictionary.
namespace calibration_key {
inline constexpr char kStatCalibrate[] = "statCalibrate";      ///< bool: capture on or off
inline constexpr char kPointId[] = "pointId";                  ///< int32: target index, from 0
inline constexpr char kCalibrateStatus[] = "calibrateStatus";  ///< bool: a valid calibration is held
inline constexpr char kCalibParams[] = "calibParams";          ///< 116 bytes: X then Y polynomial
inline constexpr char kCalibParam[] = "calibParam";  ///< the same, as a cancelled region run sends it
inline constexpr char kMinX[] = "minX";              ///< int32, touch area, logical units 0..32767
inline constexpr char kMinY[] = "minY";
inline constexpr char kMaxX[] = "maxX";
inline constexpr char kMaxY[] = "maxY";
inline constexpr char kX[] = "x";  ///< int32, read back: raw X of the last captured touch
inline constexpr char kY[] = "y";
}  // namespace calibration_key

namespace calibration_limit {
inline constexpr int kMaximumPointId = 255;
}  // namespace calibration_limit

/// Largest value of the driver's logical coordinates, on both axes; y counts from the top of the screen.
inline constexpr int kLogicalMaximum = 32767;

}  // namespace touchpanel
