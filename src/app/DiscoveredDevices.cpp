#include "app/DiscoveredDevices.h"

#include "platform/Translatable.h"

namespace touchpanel {

DiscoveredDevices::DiscoveredDevices(const Outlets& outlets, ControllerState& state, DeviceTable& table,
                                     CalibrationWrites& writes, SelectedDeviceFacts& facts,
                                     StatusLine& statusLine)
    : outlets_(outlets),
      state_(state),
      table_(table),
      writes_(writes),
      facts_(facts),
      statusLine_(statusLine) {}

void DiscoveredDevices::reloadDeviceTable() {
  outlets_.deviceTableView.reloadData();
  const auto& list = state_.deviceListArray;
  if (list.size() > shown_)
    statusLine_.show(
        {TRANSLATABLE_TEXT("StatusLine", "%1 was connected."), list.back()->text(entry_key::kSN)});
  if (list.size() < shown_)
    statusLine_.show({TRANSLATABLE_TEXT("StatusLine", "A touchscreen was unplugged.")});
  shown_ = list.size();
  writes_.update();
  facts_.update();
}

bool DiscoveredDevices::shouldSelectRow(std::int32_t row) {
  const bool selected = table_.shouldSelectRow(row);
  if (selected) outlets_.deviceTableView.selectRow(row);
  return selected;
}

}  // namespace touchpanel
