#include "driver/TouchSettings.h"

#include <array>

#include "contract/DriverProperties.h"
#include "driver/PropertyField.h"

namespace touchpanel::driver {

namespace {
using Field = PropertyField<TouchSettings, std::int32_t, bool>;
using namespace configration_limit;

constexpr std::array kFieldArray = {
    Field{configration_key::kMode, &TouchSettings::mode, {0, kMaximumMode}},
    Field{configration_key::kClickRange, &TouchSettings::clickRange, {0, kMaximumArea}},
    Field{configration_key::kEnableRightClick, &TouchSettings::enableRightClick},
    Field{configration_key::kRightClickTime, &TouchSettings::rightClickTime, {0, kMaximumTimeMs}},
    Field{configration_key::kRightClickArea, &TouchSettings::rightClickArea, {0, kMaximumArea}},
    Field{configration_key::kEnableTouchSensitivity, &TouchSettings::enableTouchSensitivity},
    Field{configration_key::kTouchSensitivityTime, &TouchSettings::touchSensitivityTime, {0, kMaximumTimeMs}},
    Field{configration_key::kTouchSensitivityArea, &TouchSettings::touchSensitivityArea, {0, kMaximumArea}},
    Field{configration_key::kSmoothness, &TouchSettings::smoothness, {0, kMaximumSmoothness}},
    Field{configration_key::kEnableTouch, &TouchSettings::enableTouch}};
constexpr std::span<const Field> kFields = kFieldArray;
}  // namespace

Status write(TouchSettings& settings, const Dictionary& dictionary) {
  auto candidate = settings;
  if (!writeAcceptable(candidate, dictionary)) return kErrorBadArgument;
  settings = candidate;
  return kSuccess;
}

bool writeAcceptable(TouchSettings& settings, const Dictionary& dictionary) {
  bool all = true;
  for (const auto& [key, value] : dictionary) {
    const auto* field = fieldFor(kFields, key);
    all = field && field->write(settings, value) && all;
  }
  return all;
}

Dictionary toDictionary(const TouchSettings& settings) {
  Dictionary dictionary;
  for (const auto& field : kFields) dictionary.set(field.key, field.read(settings));
  return dictionary;
}

}  // namespace touchpanel::driver
