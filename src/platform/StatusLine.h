#pragma once

#include <string>

namespace touchpanel {

/// What the status line can tell. The English text stands in statusTemplate(), once.
enum class StatusText {
  NoDeviceSelected,
  DeviceConnected,
  DeviceUnplugged,
  CalibrationStarted,
  RegionCalibrationStarted,
  CalibrationSaved,
  CalibrationLeft,
  CalibrationReset,
  TouchEnabled,
  TouchDisabled,
  SettingsSaved,
  SettingsNotSaved,
  SettingsCancelled,
  SettingsReloaded,
};

/// One thing that was done, with its outcome, free of any language.
struct StatusMessage {
  StatusText text = StatusText::NoDeviceSelected;
  std::string device = {};  ///< name of the touchscreen, for "%1"; empty where the text has none
  int count = 0;            ///< number of touchscreens, for "%n"; 0 where the text has none
  bool operator==(const StatusMessage&) const = default;
};

/// The English source text of `text`, the key under which a translation catalogue holds it. "%1" stands for
/// the touchscreen's name, "%n" for a number. Lives as long as the program.
const char* statusTemplate(StatusText text);

/// Where the user reads the last thing done and how it went.
class StatusLine {
 public:
  virtual ~StatusLine() = default;
  /// Replaces what is shown. Returns at once.
  virtual void show(const StatusMessage& message) = 0;
};

}  // namespace touchpanel
