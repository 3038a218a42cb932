#include "app/SettingsValues.h"

#include "discovery/DeviceEntry.h"

namespace touchpanel {
namespace {

using IntegerMember = std::int32_t SettingsValues::*;
using BooleanMember = bool SettingsValues::*;

/// Which member stands under which key of a device entry; just one of the two members is set.
struct Field {
  const char* key;
  IntegerMember integer = nullptr;
  BooleanMember boolean = nullptr;
};

constexpr Field kFields[] = {
    {settings_key::kTouchMode, &SettingsValues::touchMode},
    {settings_key::kClickRange, &SettingsValues::clickRange},
    {settings_key::kSmoothness, &SettingsValues::smoothness},
    {settings_key::kCalibrateMode, &SettingsValues::calibrateMode},
    {settings_key::kCalibrateType, &SettingsValues::calibrateType},
    {settings_key::kEnableRightClick, nullptr, &SettingsValues::enableRightClick},
    {settings_key::kRightClickTime, &SettingsValues::rightClickTime},
    {settings_key::kRightClickArea, &SettingsValues::rightClickArea},
    {entry_key::kDoubleClickTime, &SettingsValues::doubleClickTime},
    {entry_key::kDoubleClickArea, &SettingsValues::doubleClickArea},
    {settings_key::kEnableTouchSensitivity, nullptr, &SettingsValues::enableTouchSensitivity},
    {settings_key::kTouchSensitivityTime, &SettingsValues::touchSensitivityTime},
    {settings_key::kTouchSensitivityArea, &SettingsValues::touchSensitivityArea},
};

}  // namespace

SettingsValues settingsOf(const Dictionary& entry) {
  SettingsValues values;
  for (const auto& field : kFields) {
    const auto* stored = entry.find(field.key);
    if (!stored) continue;
    if (field.integer) values.*field.integer = stored->integer();
    if (field.boolean) values.*field.boolean = stored->boolean();
  }
  return values;
}

void storeSettings(const SettingsValues& values, Dictionary& entry) {
  for (const auto& field : kFields)
    entry.set(field.key, field.integer ? Value(values.*field.integer) : Value(values.*field.boolean));
}

TouchSettings touchSettingsOf(const SettingsValues& values) {
  return {.mode = values.touchMode,
          .clickRange = values.clickRange,
          .enableRightClick = values.enableRightClick,
          .rightClickTime = values.rightClickTime,
          .rightClickArea = values.rightClickArea,
          .enableTouchSensitivity = values.enableTouchSensitivity,
          .touchSensitivityTime = values.touchSensitivityTime,
          .touchSensitivityArea = values.touchSensitivityArea,
          .smoothness = values.smoothness};
}

}  // namespace touchpanel
