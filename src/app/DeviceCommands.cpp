#include "app/DeviceCommands.h"

namespace touchpanel {

DeviceCommands::DeviceCommands(const Outlets& outlets, const ControllerPorts& ports, ControllerState& state)
    : outlets_(outlets),
      ports_(ports),
      state_(state),
      buttons_(outlets, state),
      driver_(ports.registry),
      store_(ports.usbServices, ports.files, ports.paths, {ports.clock, ports.diagnostics},
             ports.waitNotice) {}

void DeviceCommands::Reset() {
  if (!state_.hasSelection()) return ports_.statusLine.show({StatusText::NoDeviceSelected});
  auto& entry = *state_.currentDict;
  driver_.resetCalibration(registryObjectOf(entry, entry_key::kHandle));
  auto& context = ports_.process.DeviceContext;
  context.DeviceConfig.CalibrateStatus = 0;
  store_.save(entry.integer(entry_key::kProductID), entry.integer(entry_key::kDeviceInterface), context);
  outlets_.btnReset.setEnabled(false);
  entry.set(entry_key::kCalibrateStatus, entry_key::kNo);
  storeContext(entry, context);
  outlets_.deviceTableView.reloadData();
  ports_.statusLine.show({StatusText::CalibrationReset, entry.text(entry_key::kSN)});
}

void DeviceCommands::EnableTouch() {
  if (!state_.hasSelection()) return ports_.statusLine.show({StatusText::NoDeviceSelected});
  auto& selected = *state_.currentDict;
  const bool enable = !selected.boolean(settings_key::kEnableTouch);
  for (const auto& entry : state_.deviceListArray) entry->set(settings_key::kEnableTouch, enable);
  buttons_.titleEnableTouch(enable);
  driver_.enableTouch(registryObjectOf(selected, entry_key::kHandle), enable);
  ports_.statusLine.show(
      {enable ? StatusText::TouchEnabled : StatusText::TouchDisabled, selected.text(entry_key::kSN)});
}

}  // namespace touchpanel
