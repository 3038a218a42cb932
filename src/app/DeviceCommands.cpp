#include "app/DeviceCommands.h"

#include "platform/Translatable.h"

namespace touchpanel {

void DeviceCommands::Reset() {
  if (!state_.hasSelection()) return statusLine_.show(kNoDeviceSelected);
  auto& entry = *state_.currentDict;
  driver_.resetCalibration(registryObjectOf(entry, entry_key::kHandle));
  context_.DeviceConfig.CalibrateStatus = 0;
  store_.save(entry.integer(entry_key::kProductID), entry.integer(entry_key::kDeviceInterface), context_);
  outlets_.btnReset.setEnabled(false);
  entry.set(entry_key::kCalibrateStatus, entry_key::kNo);
  storeContext(entry, context_);
  outlets_.deviceTableView.reloadData();
  statusLine_.show({TRANSLATABLE_TEXT("StatusLine", "A reset of the calibration was sent to %1."),
                    entry.text(entry_key::kSN)});
}

void DeviceCommands::EnableTouch() {
  if (!state_.hasSelection()) return statusLine_.show(kNoDeviceSelected);
  auto& selected = *state_.currentDict;
  const bool enable = !selected.boolean(settings_key::kEnableTouch);
  for (const auto& entry : state_.deviceListArray) entry->set(settings_key::kEnableTouch, enable);
  buttons_.titleEnableTouch(enable);
  driver_.enableTouch(registryObjectOf(selected, entry_key::kHandle), enable);
  statusLine_.show({enable ? TRANSLATABLE_TEXT("StatusLine", "Touch was enabled on %1.")
                           : TRANSLATABLE_TEXT("StatusLine", "Touch was disabled on %1."),
                    selected.text(entry_key::kSN)});
}

}  // namespace touchpanel
