#include "app/SettingsPanel.h"

namespace touchpanel {

SettingsPanel::SettingsPanel(const Outlets& outlets, const ControllerPorts& ports, ControllerState& state)
    : outlets_(outlets),
      ports_(ports),
      state_(state),
      controls_(outlets),
      buttons_(outlets, state),
      driver_(ports.registry) {}

void SettingsPanel::Settings() {
  if (!state_.hasSelection()) return ports_.statusLine.show({StatusText::NoDeviceSelected});
  state_.bEnableItems = false;
  state_.bSaveSettings = false;
  outlets_.btnApply.setEnabled(false);
  outlets_.btnRebootDevcie.setEnabled(false);
  ports_.sheets.begin(outlets_.SettingsWindow, outlets_.KeyWindow);
  UpdateSettings();
  buttons_.enableAll();
}

void SettingsPanel::UpdateSettings() {
  buttons_.enableReset();
  if (!state_.hasSelection()) return;
  const auto& entry = *state_.currentDict;
  buttons_.titleEnableTouch(entry.boolean(settings_key::kEnableTouch));
  const auto values = settingsOf(entry);
  RefreshTouchMode(values.touchMode);
  controls_.show(values);
  ports_.process.devIntf = ports_.usbServices.deviceInterface(entry.integer(entry_key::kDeviceInterface));
}

void SettingsPanel::RefreshTouchMode(std::int32_t touchMode) {
  controls_.enableDependents(touchMode, state_.currentDict->integer(entry_key::kProductID));
}

void SettingsPanel::SettingsChange() {
  if (!state_.hasSelection()) return;
  const auto shown = controls_.values();
  RefreshTouchMode(shown.touchMode);
  const bool changed = shown != settingsOf(*state_.currentDict);
  outlets_.btnApply.setEnabled(changed);
  if (changed) state_.bSaveSettings = false;
}

void SettingsPanel::SettingsDefault() {
  const SettingsValues defaults;
  RefreshTouchMode(defaults.touchMode);
  controls_.show(defaults);
  SettingsChange();
}

void SettingsPanel::SettingsApply() {
  state_.bSaveSettings = true;
  SaveDriverConfig();
  outlets_.btnApply.setEnabled(false);
}

void SettingsPanel::SettingsOk() {
  if (!state_.bSaveSettings) SaveDriverConfig();
  close();
}

void SettingsPanel::SettingsCancel() {
  close();
  ports_.statusLine.show({StatusText::SettingsCancelled});
}

void SettingsPanel::close() {
  state_.bEnableItems = true;
  buttons_.enableAll();
  ports_.sheets.end(outlets_.SettingsWindow, 0);
  outlets_.SettingsWindow.orderOut();
}

void SettingsPanel::SaveDriverConfig() {
  if (!state_.hasSelection()) return ports_.statusLine.show({StatusText::NoDeviceSelected});
  const auto values = controls_.values();
  for (const auto& entry : state_.deviceListArray) {
    const auto hidSystem = registryObjectOf(*entry, entry_key::kHiddevice);
    driver_.applySettings(registryObjectOf(*entry, entry_key::kHandle), touchSettingsOf(values));
    storeSettings(values, *entry);
    if (hidSystem != 0) driver_.writeDoubleClick(hidSystem, values.doubleClickTime, values.doubleClickArea);
  }
  UpdateSettings();
  const auto outcome = WriteDriverConfigToFile() ? StatusText::SettingsSaved : StatusText::SettingsNotSaved;
  ports_.statusLine.show({.text = outcome, .count = static_cast<int>(state_.deviceListArray.size())});
}

bool SettingsPanel::WriteDriverConfigToFile() {
  return writeDriverConfig(ports_.files, ports_.paths, *state_.currentDict);
}

void SettingsPanel::selectionChanged() {
  UpdateSettings();
  if (!isOpen()) return;
  outlets_.btnApply.setEnabled(false);
  ports_.statusLine.show({StatusText::SettingsReloaded, state_.currentDict->text(entry_key::kSN)});
}

}  // namespace touchpanel
