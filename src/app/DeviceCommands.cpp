#include "app/DeviceCommands.h"

#include <vector>

namespace touchpanel {

void DeviceCommands::Reset() {
  if (!state_.hasSelection()) return statusLine_.show(kNoDeviceSelected);
  auto& entry = *state_.currentDict;
  const auto before = contextOf(entry);
  const Status driver = driver_.resetCalibration(registryObjectOf(entry, entry_key::kHandle));
  context_.DeviceConfig.CalibrateStatus = 0;
  const auto written =
      store_.save(entry.integer(entry_key::kProductID), entry.integer(entry_key::kDeviceInterface), context_);
  outlets_.btnReset.setEnabled(false);
  entry.set(entry_key::kCalibrateStatus, entry_key::kNo);
  storeContext(entry, context_);
  outlets_.deviceTableView.reloadData();
  writes_.report(state_.currentDict, before, {.event = CalibrationEvent::Reset, .context = context_}, written,
                 sentenceOf(WriteAttempt::Reset, entry.text(entry_key::kSN), written, driver));
}

void DeviceCommands::EnableTouch() {
  if (!state_.hasSelection()) return statusLine_.show(kNoDeviceSelected);
  auto& selected = *state_.currentDict;
  const bool enabled = selected.boolean(settings_key::kEnableTouch);
  std::vector<Value> kept;
  for (const auto& entry : state_.deviceListArray) {
    kept.emplace_back(entry->boolean(settings_key::kEnableTouch));
    entry->set(settings_key::kEnableTouch, !enabled);
  }
  buttons_.titleEnableTouch(!enabled);
  const Status driver = driver_.enableTouch(registryObjectOf(selected, entry_key::kHandle), !enabled);
  if (driver != kSuccess) {
    for (std::size_t row = 0; row < kept.size(); ++row)
      state_.deviceListArray[row]->set(settings_key::kEnableTouch, kept[row]);
    buttons_.titleEnableTouch(enabled);
  }
  statusLine_.show(sentenceOfTouch(!enabled, selected.text(entry_key::kSN), driver));
}

}  // namespace touchpanel
