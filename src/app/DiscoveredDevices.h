#pragma once

#include <cstddef>

#include "app/CalibrationWrites.h"
#include "app/DeviceTable.h"
#include "app/ListNotice.h"
#include "discovery/DeviceList.h"
#include "platform/StatusLine.h"

namespace touchpanel {

/// The controller's list as discovery sees it. What discovery selects is highlighted too, and the status line
/// names who came and says that one left.
class DiscoveredDevices final : public DeviceListOwner {
 public:
  DiscoveredDevices(const Outlets& outlets, ControllerState& state, DeviceTable& table,
                    CalibrationWrites& writes, SelectedDeviceFacts& facts, StatusLine& statusLine,
                    EmptyListPage& emptyList);

  DeviceListArray& deviceListArray() override { return state_.deviceListArray; }
  Dictionary& drvConfigDict() override { return state_.drvConfigDict; }
  void reloadDeviceTable() override;
  bool shouldSelectRow(std::int32_t row) override;
  void arriving() override;
  void notListed(const NotListed& reason) override;
  void readInPart(ContentSet failed) override;
  void settingsUnreadable() override;

 private:
  /// Says `text` of the touchscreen that was listed last.
  void sayOfLast(std::string_view text);

  const Outlets& outlets_;
  ControllerState& state_;
  DeviceTable& table_;
  CalibrationWrites& writes_;
  SelectedDeviceFacts& facts_;
  StatusLine& statusLine_;
  EmptyListPage& emptyList_;
  std::size_t shown_ = 0;  ///< length of the list at the last status message
};

}  // namespace touchpanel
