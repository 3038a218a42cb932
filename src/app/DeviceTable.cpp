#include "app/DeviceTable.h"

#include "app/CellText.h"

namespace touchpanel {

DeviceTable::DeviceTable(const Outlets& outlets, ControllerState& state, SettingsSheet& settings,
                         SelectedDeviceFacts& facts)
    : outlets_(outlets), state_(state), settings_(settings), facts_(facts) {}

std::int32_t DeviceTable::numberOfRows() const {
  return static_cast<std::int32_t>(state_.deviceListArray.size());
}

std::string DeviceTable::objectValue(std::string_view columnIdentifier, std::int32_t row) {
  if (!holds(row)) return {};
  if (state_.bFirstLoading) {
    state_.bFirstLoading = false;
    selectFirstRow();
  }
  const auto* value = state_.deviceListArray[static_cast<std::size_t>(row)]->find(columnIdentifier);
  return value ? cellText(columnIdentifier, *value) : std::string();
}

bool DeviceTable::shouldSelectRow(std::int32_t row) {
  if (!holds(row)) return false;
  state_.currentDict = state_.deviceListArray[static_cast<std::size_t>(row)];
  settings_.selectionChanged();
  facts_.update();
  return true;
}

void DeviceTable::selectFirstRow() {
  if (shouldSelectRow(0)) outlets_.deviceTableView.selectRow(0);
}

}  // namespace touchpanel
