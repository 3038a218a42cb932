#include "app/SettingsSheet.h"

#include "platform/Translatable.h"

namespace touchpanel {

namespace {

/// The settings in `entry`. A key that it lacks reads as its default: a double-click time that the system does
/// not have must not be offered, and then applied, as 0 ms.
TouchSettings settingsOf(const Dictionary& entry) {
  TouchSettings settings;
  for (const auto& setting : kTouchSettings) {
    const auto* stored = entry.find(setting.key);
    if (stored == nullptr) continue;
    if (const auto* integer = std::get_if<std::int32_t TouchSettings::*>(&setting.member))
      settings.** integer = stored->integer();
    if (const auto* boolean = std::get_if<bool TouchSettings::*>(&setting.member))
      settings.** boolean = stored->boolean();
  }
  return settings;
}

/// Integers and booleans, whatever types were there before.
void storeSettings(const TouchSettings& settings, Dictionary& entry) {
  for (const auto& setting : kTouchSettings)
    if (setting.isOnSheet) entry.set(setting.key, valueOf(settings, setting));
}

}  // namespace

void SettingsSheet::Settings() {
  if (!state_.hasSelection()) return ports_.statusLine.show(kNoDeviceSelected);
  state_.bEnableItems = false;
  state_.bSaveSettings = false;
  applied_ = false;
  outlets_.btnApply.setEnabled(false);
  outlets_.btnRebootDevcie.setEnabled(false);
  ports_.sheets.begin(outlets_.SettingsWindow, outlets_.KeyWindow);
  UpdateSettings();
  buttons_.enableAll();
}

void SettingsSheet::UpdateSettings() {
  buttons_.enableReset();
  if (!state_.hasSelection()) return;
  const auto& entry = *state_.currentDict;
  buttons_.titleEnableTouch(entry.boolean(settings_key::kEnableTouch));
  const auto settings = settingsOf(entry);
  RefreshTouchMode(settings.mode);
  controls_.show(settings);
  RefreshTouchMode(settings.mode);  // again: what depends on a box now follows the box that is shown
  ports_.process.devIntf = ports_.usbServices.deviceInterface(entry.integer(entry_key::kDeviceInterface));
}

void SettingsSheet::RefreshTouchMode(std::int32_t touchMode) {
  controls_.enableDependents(touchMode, state_.currentDict->integer(entry_key::kProductID));
}

void SettingsSheet::SettingsChange() {
  if (!state_.hasSelection()) return;
  const auto stored = settingsOf(*state_.currentDict);
  const auto shown = controls_.changed(stored);
  RefreshTouchMode(shown.mode);
  const bool changed = shown != stored;
  outlets_.btnApply.setEnabled(changed);
  if (changed) state_.bSaveSettings = false;
}

void SettingsSheet::SettingsDefault() {
  const TouchSettings defaults;
  RefreshTouchMode(defaults.mode);
  controls_.show(defaults);
  SettingsChange();
}

void SettingsSheet::SettingsApply() {
  state_.bSaveSettings = true;
  applied_ = true;
  SaveDriverConfig();
  outlets_.btnApply.setEnabled(false);
}

void SettingsSheet::SettingsOk() {
  if (!state_.bSaveSettings) SaveDriverConfig();
  close();
}

void SettingsSheet::SettingsCancel() {
  const auto stored = settingsOf(*state_.currentDict);
  const bool nothingMore = applied_ && controls_.changed(stored) == stored;
  close();
  if (nothingMore) return;  // what Apply came to stays on the status line
  ports_.statusLine.show({TRANSLATABLE_TEXT("StatusLine", "Settings were closed without applying changes.")});
}

void SettingsSheet::close() {
  state_.bEnableItems = true;
  buttons_.enableAll();
  ports_.sheets.end(outlets_.SettingsWindow, 0);
  outlets_.SettingsWindow.orderOut();
}

void SettingsSheet::SaveDriverConfig() {
  if (!state_.hasSelection()) return ports_.statusLine.show(kNoDeviceSelected);
  auto outcome = applyToAll(controls_.changed({}));
  UpdateSettings();
  outcome.file = WriteDriverConfigToFile();
  ports_.statusLine.show(sentenceOf(outcome));
}

SettingsOutcome SettingsSheet::applyToAll(const TouchSettings& settings) {
  SettingsOutcome outcome;
  const auto keepFirst = [](Status& first, Status status) {
    if (first == kSuccess) first = status;
  };
  for (const auto& entry : state_.deviceListArray) {
    const auto hidSystem = registryObjectOf(*entry, entry_key::kHiddevice);
    const Status driver = driver_.applySettings(registryObjectOf(*entry, entry_key::kHandle), settings);
    if (driver == kSuccess)
      ++outcome.taken;
    else
      outcome.notTaken.push_back(entry->text(entry_key::kSN));
    keepFirst(outcome.driver, driver);
    storeSettings(settings, *entry);
    if (hidSystem != 0)
      keepFirst(outcome.doubleClick,
                driver_.writeDoubleClick(hidSystem, settings.doubleClickTime, settings.doubleClickArea));
  }
  return outcome;
}

Status SettingsSheet::WriteDriverConfigToFile() {
  return writeDriverConfig(ports_.files, ports_.paths, *state_.currentDict);
}

void SettingsSheet::selectionChanged() {
  UpdateSettings();
  if (!isOpen()) return;
  outlets_.btnApply.setEnabled(false);
  ports_.statusLine.show(
      {TRANSLATABLE_TEXT("StatusLine", "Touchscreens have changed; the settings shown are those of %1."),
       state_.currentDict->text(entry_key::kSN)});
}

}  // namespace touchpanel
