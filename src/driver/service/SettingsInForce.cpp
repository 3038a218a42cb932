#include "driver/service/SettingsInForce.h"

#include <algorithm>
#include <utility>

#include "contract/DriverProperties.h"
#include "driver/SettingsProperty.h"

namespace touchpanel::driver {

namespace {
Dictionary sharedSettings(const TouchSettings& settings) {
  auto shared = toDictionary(settings);
  shared.remove(configration_key::kEnableTouch);
  return shared;
}
}  // namespace

Dictionary ownSettings(const TouchSettings& settings) {
  return {{configration_key::kEnableTouch, settings.enableTouch}};
}

SettingsInForce::SettingsInForce(StateStore& store, Diagnostics& diagnostics) : store_(store) {
  const auto loaded = store_.loadSettings();
  const auto* configration = loaded.dictionary(property::kConfigration);
  if (!configration) return;
  TouchSettings settings;
  if (!writeAcceptable(settings, *configration))
    diagnostics.line("The saved settings are damaged; what is sound of them is used.");
  settings_ = sharedSettings(settings);
}

Dictionary SettingsInForce::over(Dictionary remembered) const {
  if (settings_.empty()) return remembered;
  auto all = settings_;
  const auto* own = remembered.dictionary(property::kConfigration);
  if (const auto* enabled = own ? own->find(configration_key::kEnableTouch) : nullptr)
    all.set(configration_key::kEnableTouch, *enabled);
  remembered.set(property::kConfigration, std::move(all));
  return remembered;
}

void SettingsInForce::takeOver(const Dictionary& remembered, const TouchSettings& settings) {
  if (settings_.empty() && remembered.contains(property::kConfigration)) set(settings);
}

void SettingsInForce::written(const Dictionary& message, const TouchSettings& settings) {
  const bool isShared = std::ranges::any_of(
      message, [](const auto& entry) { return entry.first != configration_key::kEnableTouch; });
  if (isShared) set(settings);
}

void SettingsInForce::set(const TouchSettings& settings) {
  settings_ = sharedSettings(settings);
  store_.saveSettings({{property::kConfigration, settings_}});
}

}  // namespace touchpanel::driver
