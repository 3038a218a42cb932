#pragma once

#include "app/CommandButtons.h"
#include "app/OutcomeSentences.h"
#include "app/SettingsControls.h"
#include "config/DataSet.h"
#include "discovery/DriverChannel.h"
#include "discovery/ProcessState.h"

namespace touchpanel {

// clang-format off: it would fill the table's lines
/// The settings sheet: it shows the selected device's settings and applies them to every listed device.
///
///     state     | entered by                  | Apply    | OK saves           | leaves on
///     ----------+-----------------------------+----------+--------------------+-----------------------------
///     closed    | OK, Cancel                  |          |                    | Settings -> untouched
///     untouched | Settings                    | disabled | yes                | a difference -> changed
///     changed   | a difference in any control | enabled  | yes                | Apply -> applied
///     back      | no difference any more      | disabled | as it was before   | a difference -> changed
///     applied   | Apply                       | disabled | no: bSaveSettings  | a difference -> changed
///
/// Every state leaves to closed on OK and Cancel. Another selection while the sheet is up shows that device's
/// settings, disables Apply, and leaves what OK does as it was.
// clang-format on
class SettingsSheet {
 public:
  struct Ports {
    Sheets& sheets;
    StatusLine& statusLine;
    UsbServices& usbServices;
    ProcessState& process;
    PropertyListFiles& files;
    const ConfigPaths& paths;
  };
  SettingsSheet(const Outlets& outlets, ControllerState& state, CommandButtons& buttons,
                DriverChannel& driver, const Ports& ports)
      : outlets_(outlets),
        state_(state),
        buttons_(buttons),
        driver_(driver),
        ports_(ports),
        controls_(outlets) {}

  void Settings();
  void UpdateSettings();
  void RefreshTouchMode(std::int32_t touchMode);
  void SettingsChange();
  void SettingsDefault();
  void SettingsApply();
  void SettingsOk();
  void SettingsCancel();
  void SaveDriverConfig();

  /// Writes the selected device's settings to the driver configuration file; see writeDriverConfig().
  Status WriteDriverConfigToFile();

  /// Shows the device that is selected now. In an open sheet this replaces what was changed and not applied.
  void selectionChanged();

 private:
  /// Sends the settings to every listed touchscreen, and to the system, and takes them into the entries.
  SettingsOutcome applyToAll(const TouchSettings& settings);
  bool isOpen() const { return !state_.bEnableItems; }
  void close();

  const Outlets& outlets_;
  ControllerState& state_;
  CommandButtons& buttons_;
  DriverChannel& driver_;
  Ports ports_;
  SettingsControls controls_;
  bool applied_ = false;  ///< since the sheet was opened
};

}  // namespace touchpanel
