#pragma once

#include "app/CommandButtons.h"
#include "app/ControllerPorts.h"
#include "app/SettingsControls.h"

namespace touchpanel {

/// The settings sheet: it shows the selected device's settings and applies them to every listed device.
///
///     state      | entered by                     | Apply    | bSaveSettings | OK        | leaves on
///     closed     | OK, Cancel                     |          |               |           | Settings ->
///     untouched untouched  | Settings, another selection    | disabled | as it was     | see below | a
///     change -> changed changed    | a change of any control        | enabled  | false         | saves     |
///     Apply -> applied applied    | Apply                          | disabled | true          | saves not |
///     a change -> changed
///
/// A change that makes the controls equal to the stored settings again only disables Apply: OK then still
/// saves, since a difference was seen on the way. OK saves unless `bSaveSettings` is set; opening clears it.
class SettingsPanel {
 public:
  SettingsPanel(const Outlets& outlets, const ControllerPorts& ports, ControllerState& state);

  void Settings();
  void UpdateSettings();
  void RefreshTouchMode(std::int32_t touchMode);
  void SettingsChange();
  void SettingsDefault();
  void SettingsApply();
  void SettingsOk();
  void SettingsCancel();
  void SaveDriverConfig();

  /// Writes the selected device's settings to the driver configuration file; true when that is done.
  bool WriteDriverConfigToFile();

  /// Shows the device that is selected now. In an open sheet this replaces what was changed and not applied.
  void selectionChanged();

 private:
  bool isOpen() const { return !state_.bEnableItems; }
  void close();

  const Outlets& outlets_;
  const ControllerPorts& ports_;
  ControllerState& state_;
  SettingsControls controls_;
  CommandButtons buttons_;
  DriverChannel driver_;
};

}  // namespace touchpanel
