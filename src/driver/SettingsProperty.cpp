#include "driver/SettingsProperty.h"

#include "driver/PropertyField.h"

namespace touchpanel::driver {

namespace {
bool writeOne(TouchSettings& settings, std::string_view key, const Value& value) {
  for (const auto& setting : kTouchSettings)
    if (setting.driverKey != nullptr && setting.driverKey == key)
      return std::visit(
          [&](auto member) {
            return writeMember(settings.*member, value, {0, setting.maximum});
          },
          setting.member);
  return false;
}
}  // namespace

Status write(TouchSettings& settings, const Dictionary& dictionary) {
  auto candidate = settings;
  if (!writeAcceptable(candidate, dictionary)) return kErrorBadArgument;
  settings = candidate;
  return kSuccess;
}

bool writeAcceptable(TouchSettings& settings, const Dictionary& dictionary) {
  bool all = true;
  for (const auto& [key, value] : dictionary) all = writeOne(settings, key, value) && all;
  return all;
}

Dictionary toDictionary(const TouchSettings& settings) {
  Dictionary dictionary;
  for (const auto& setting : kTouchSettings)
    if (setting.driverKey != nullptr) dictionary.set(setting.driverKey, valueOf(settings, setting));
  return dictionary;
}

}  // namespace touchpanel::driver
