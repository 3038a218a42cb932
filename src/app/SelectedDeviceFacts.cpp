#include "app/SelectedDeviceFacts.h"

#include <variant>

#include "contract/DriverProperties.h"

namespace touchpanel {
namespace {

/// The settings among the properties of a driver instance.
std::optional<TouchSettings> settingsIn(const Dictionary& properties) {
  const auto* published = properties.dictionary(property::kConfigration);
  if (published == nullptr) return std::nullopt;
  TouchSettings settings;
  for (const auto& setting : kTouchSettings) {
    const auto* value = setting.driverKey ? published->find(setting.driverKey) : nullptr;
    if (value == nullptr) continue;
    if (const auto* integer = std::get_if<std::int32_t TouchSettings::*>(&setting.member))
      settings.** integer = value->integer();
    if (const auto* boolean = std::get_if<bool TouchSettings::*>(&setting.member))
      settings.** boolean = value->boolean();
  }
  return settings;
}

void addHistory(DeviceFacts& facts, const CalibrationHistory::Contents& history, const Dictionary& entry) {
  facts.earlierCalibrations = history.records.size();
  facts.isHistoryDamaged = history.isDamaged;
  facts.canUndoReset = discardedByReset(history.records, entry) != nullptr;
  const auto* accepted = facts.isCalibrated ? acceptedIn(history.records, entry) : nullptr;
  if (accepted != nullptr) facts.calibration = {accepted->time, accepted->fit};
}

}  // namespace

DeviceFacts SelectedDeviceFacts::facts() const {
  if (!state_.hasSelection()) return {};
  const auto& entry = *state_.currentDict;
  DeviceFacts facts{.isSelected = true,
                    .kind = kindOf(entry.integer(entry_key::kProductID)),
                    .barCode = barCodeOf(entry),
                    .firmware = entry.text(entry_key::kFirmwareVersion),
                    .monitor = entry.integer(entry_key::kMonitorID),
                    .isCalibrated = entry.text(entry_key::kCalibrateStatus) == entry_key::kYes};
  addHistory(facts, earlier_.of(entry), entry);
  const auto properties = registry_.properties(registryObjectOf(entry, entry_key::kHandle));
  if (properties) facts.inForce = settingsIn(*properties);
  if (!facts.inForce) {
    const auto service = registry_.availability();
    facts.driver = service == kSuccess ? kErrorNoDevice : service;
  }
  return facts;
}

}  // namespace touchpanel
