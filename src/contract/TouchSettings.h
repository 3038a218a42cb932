#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <variant>

#include "platform/Value.h"

namespace touchpanel {

/// Rows of the touch mode selector.
enum TouchModeRow : std::int32_t {
  kClickOnTouch = 0,
  kClickOnRelease = 1,
  kDragAndHold = 2,
  kMultiTouch = 3,
};

/// The settings of a touchscreen, each at its default. Times are in ms; a unit of an area or range is 32
/// logical units, a 1024th of the screen, to each side of a point.
struct TouchSettings {
  std::int32_t mode = kDragAndHold;
  std::int32_t clickRange = 0;
  bool enableRightClick = true;
  std::int32_t rightClickTime = 1000;
  std::int32_t rightClickArea = 5;
  bool enableTouchSensitivity = true;
  std::int32_t touchSensitivityTime = 100;
  std::int32_t touchSensitivityArea = 5;
  std::int32_t smoothness = 1;
  bool enableTouch = true;
  std::int32_t calibrateMode = 4;  ///< number of targets
  std::int32_t calibrateType = 0;
  std::int32_t doubleClickTime = 500;  ///< of the system, like the area
  std::int32_t doubleClickArea = 5;
  bool operator==(const TouchSettings&) const = default;
};

// Keys that are used one by one; the others stand in kTouchSettings alone.

/// Of the driver configuration file and of every device entry.
namespace settings_key {
inline constexpr char kTouchMode[] = "TouchMode";
inline constexpr char kEnableTouch[] = "EnableTouch";
inline constexpr char kClickRange[] = "ClickRange";
inline constexpr char kRightClickTime[] = "RightClickTime";
inline constexpr char kCalibrateMode[] = "CalibrateMode";
inline constexpr char kDoubleClickTime[] = "DoubleClickTime";
inline constexpr char kDoubleClickArea[] = "DoubleClickArea";
}  // namespace settings_key

/// Of the "configration" dictionary.
namespace configration_key {
inline constexpr char kMode[] = "mode";
inline constexpr char kClickRange[] = "clickRange";
inline constexpr char kEnableRightClick[] = "enableRightClick";
inline constexpr char kRightClickTime[] = "rightClickTime";
inline constexpr char kRightClickArea[] = "rightClickArea";
inline constexpr char kSmoothness[] = "smoothness";
inline constexpr char kEnableTouch[] = "enableTouch";
}  // namespace configration_key

/// The largest integers that the driver takes; the smallest is 0. Anything outside is refused together with
/// the whole message.
namespace configration_limit {
inline constexpr std::int32_t kMaximumMode = kMultiTouch;
inline constexpr std::int32_t kMaximumArea = 1000;
inline constexpr std::int32_t kMaximumTimeMs = 60000;
inline constexpr std::int32_t kMaximumSmoothness = 100;
}  // namespace configration_limit

/// What panel and driver service know of a setting beside its meaning.
struct TouchSetting {
  std::variant<std::int32_t TouchSettings::*, bool TouchSettings::*> member;
  const char* key;                  ///< in the device entry
  int filePlace = 0;                ///< in the driver configuration file, from 1; 0: not in the file
  const char* driverKey = nullptr;  ///< in "configration"; null: not part of it
  std::int32_t maximum = 0;         ///< of an integer in "configration"
  bool isOnSheet = true;            ///< applied by the settings sheet together with the others
};

inline Value valueOf(const TouchSettings& settings, const TouchSetting& setting) {
  return std::visit([&](auto member) { return Value(settings.*member); }, setting.member);
}

/// Every setting, in the order of "configration" messages.
inline constexpr std::array kTouchSettings = [] {
  using S = TouchSettings;
  using namespace settings_key;
  using namespace configration_limit;
  namespace driver_key = configration_key;
  return std::to_array<TouchSetting>({
      {&S::mode, kTouchMode, 1, driver_key::kMode, kMaximumMode},
      {&S::clickRange, kClickRange, 3, driver_key::kClickRange, kMaximumArea},
      {&S::enableRightClick, "EnableRightClick", 7, driver_key::kEnableRightClick},
      {&S::rightClickTime, settings_key::kRightClickTime, 8, driver_key::kRightClickTime, kMaximumTimeMs},
      {&S::rightClickArea, "RightClickArea", 9, driver_key::kRightClickArea, kMaximumArea},
      {&S::enableTouchSensitivity, "EnableTouchSensitivity", 10, "enableTouchSensitivity"},
      {&S::touchSensitivityTime, "TouchSensitivityTime", 11, "touchSensitivityTime", kMaximumTimeMs},
      {&S::touchSensitivityArea, "TouchSensitivityArea", 12, "touchSensitivityArea", kMaximumArea},
      {&S::smoothness, "Smoothness", 4, driver_key::kSmoothness, kMaximumSmoothness},
      {&S::enableTouch, kEnableTouch, 2, driver_key::kEnableTouch, 0, false},
      {&S::calibrateMode, kCalibrateMode, 5},
      {&S::calibrateType, "CalibrateType", 6},
      {&S::doubleClickTime, kDoubleClickTime},
      {&S::doubleClickArea, kDoubleClickArea},
  });
}();

/// The settings of the driver configuration file, in its order.
inline constexpr auto kSettingsInFile = [] {
  constexpr auto isInFile = [](const TouchSetting& setting) { return setting.filePlace > 0; };
  std::array<TouchSetting, std::ranges::count_if(kTouchSettings, isInFile)> ordered{};
  for (const auto& setting : kTouchSettings)
    if (isInFile(setting)) ordered.at(static_cast<std::size_t>(setting.filePlace) - 1) = setting;
  return ordered;
}();
static_assert(std::ranges::all_of(kSettingsInFile, [](const auto& setting) { return setting.filePlace > 0; }),
              "every place of the file is taken");

}  // namespace touchpanel
