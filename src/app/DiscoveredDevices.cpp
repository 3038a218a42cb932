#include "app/DiscoveredDevices.h"

namespace touchpanel {

DiscoveredDevices::DiscoveredDevices(const Outlets& outlets, ControllerState& state, DeviceTable& table,
                                     StatusLine& statusLine)
    : outlets_(outlets), state_(state), table_(table), statusLine_(statusLine) {}

void DiscoveredDevices::reloadDeviceTable() {
  outlets_.deviceTableView.reloadData();
  const auto& list = state_.deviceListArray;
  if (list.size() > told_) statusLine_.show({StatusText::DeviceConnected, list.back()->text(entry_key::kSN)});
  if (list.size() < told_) statusLine_.show({StatusText::DeviceUnplugged});
  told_ = list.size();
}

bool DiscoveredDevices::shouldSelectRow(std::int32_t row) {
  const bool selected = table_.shouldSelectRow(row);
  if (selected) outlets_.deviceTableView.selectRow(row);
  return selected;
}

}  // namespace touchpanel
