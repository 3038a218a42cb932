#pragma once

#include <array>

/// Keys of the driver settings, the same in the driver configuration file and in every device entry.
namespace touchpanel::settings_key {
inline constexpr char kTouchMode[] = "TouchMode";
inline constexpr char kEnableTouch[] = "EnableTouch";
inline constexpr char kClickRange[] = "ClickRange";
inline constexpr char kSmoothness[] = "Smoothness";
inline constexpr char kCalibrateMode[] = "CalibrateMode";
inline constexpr char kCalibrateType[] = "CalibrateType";
inline constexpr char kEnableRightClick[] = "EnableRightClick";
inline constexpr char kRightClickTime[] = "RightClickTime";
inline constexpr char kRightClickArea[] = "RightClickArea";
inline constexpr char kEnableTouchSensitivity[] = "EnableTouchSensitivity";
inline constexpr char kTouchSensitivityTime[] = "TouchSensitivityTime";
inline constexpr char kTouchSensitivityArea[] = "TouchSensitivityArea";

/// All twelve in the order of the file.
inline constexpr std::array<const char*, 12> kAll = {kTouchMode,
                                                     kEnableTouch,
                                                     kClickRange,
                                                     kSmoothness,
                                                     kCalibrateMode,
                                                     kCalibrateType,
                                                     kEnableRightClick,
                                                     kRightClickTime,
                                                     kRightClickArea,
                                                     kEnableTouchSensitivity,
                                                     kTouchSensitivityTime,
                                                     kTouchSensitivityArea};
}  // namespace touchpanel::settings_key
