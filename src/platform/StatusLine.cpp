#include "platform/StatusLine.h"

#include "platform/Translatable.h"

namespace touchpanel {

const char* statusTemplate(StatusText text) {
  switch (text) {
    case StatusText::NoDeviceSelected:
      return TRANSLATABLE_TEXT("StatusLine", "No touchscreen is selected.");
    case StatusText::DeviceConnected:
      return TRANSLATABLE_TEXT("StatusLine", "%1 was connected.");
    case StatusText::DeviceUnplugged:
      return TRANSLATABLE_TEXT("StatusLine", "A touchscreen was unplugged.");
    case StatusText::CalibrationStarted:
      return TRANSLATABLE_TEXT("StatusLine", "Calibration of %1 started.");
    case StatusText::RegionCalibrationStarted:
      return TRANSLATABLE_TEXT("StatusLine", "Region calibration of %1 started.");
    case StatusText::CalibrationSaved:
      return TRANSLATABLE_TEXT("StatusLine", "The new calibration of %1 was accepted.");
    case StatusText::CalibrationLeft:
      return TRANSLATABLE_TEXT("StatusLine",
                               "The calibration of %1 ended; nothing was written to the touchscreen.");
    case StatusText::CalibrationReset:
      return TRANSLATABLE_TEXT("StatusLine", "A reset of the calibration was sent to %1.");
    case StatusText::TouchEnabled:
      return TRANSLATABLE_TEXT("StatusLine", "Touch was enabled on %1.");
    case StatusText::TouchDisabled:
      return TRANSLATABLE_TEXT("StatusLine", "Touch was disabled on %1.");
    case StatusText::SettingsSaved:
      return TRANSLATABLE_COUNT("StatusLine", "Settings were sent to %n touchscreen(s) and saved.");
    case StatusText::SettingsNotSaved:
      return TRANSLATABLE_COUNT(
          "StatusLine",
          "Settings were sent to %n touchscreen(s), but could not be saved for the next start.");
    case StatusText::SettingsCancelled:
      return TRANSLATABLE_TEXT("StatusLine", "Settings were closed without applying changes.");
    case StatusText::SettingsReloaded:
      return TRANSLATABLE_TEXT("StatusLine",
                               "Touchscreens have changed; the settings shown are those of %1.");
  }
  return "";
}

}  // namespace touchpanel
