#pragma once

#include <cstdint>

#include "discovery/DriverChannel.h"
#include "platform/Value.h"

namespace touchpanel {

/// What the settings sheet edits, as a device entry stores it. Times are milliseconds, areas and levels are
/// in the driver's units; nothing is checked or clamped here. Member defaults are those of the Default
/// button.
struct SettingsValues {
  std::int32_t touchMode = 2;
  std::int32_t clickRange = 0;
  std::int32_t smoothness = 1;
  std::int32_t calibrateMode = 4;  ///< number of targets
  std::int32_t calibrateType = 0;
  bool enableRightClick = true;
  std::int32_t rightClickTime = 1000;
  std::int32_t rightClickArea = 5;
  std::int32_t doubleClickTime = 500;
  std::int32_t doubleClickArea = 5;
  bool enableTouchSensitivity = true;
  std::int32_t touchSensitivityTime = 100;
  std::int32_t touchSensitivityArea = 5;
  bool operator==(const SettingsValues&) const = default;
};

/// The settings in `entry`. A key that it lacks reads as its default: a double-click time that the system
/// does not tell must not be offered, and then applied, as 0 ms.
SettingsValues settingsOf(const Dictionary& entry);

/// Puts every value into `entry`, integers and booleans, whatever types were there before.
void storeSettings(const SettingsValues& values, Dictionary& entry);

/// The part of the settings that a driver instance is told.
TouchSettings touchSettingsOf(const SettingsValues& values);

}  // namespace touchpanel
