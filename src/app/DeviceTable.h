#pragma once

#include <string>
#include <string_view>

#include "app/ControllerState.h"
#include "app/Outlets.h"
#include "app/SelectedDeviceFacts.h"
#include "app/SettingsSheet.h"

namespace touchpanel {

/// The device list as a table: rows are entries, a column shows the key that is its identifier.
class DeviceTable {
 public:
  DeviceTable(const Outlets& outlets, ControllerState& state, SettingsSheet& settings,
              SelectedDeviceFacts& facts);

  std::int32_t numberOfRows() const;
  /// Text of a cell; empty outside the list and for a key that the entry lacks. The first cell ever asked for
  /// selects the first row.
  std::string objectValue(std::string_view columnIdentifier, std::int32_t row);
  /// Makes `row` the selection and shows its settings and facts. False, changing nothing, outside the list.
  bool shouldSelectRow(std::int32_t row);
  /// The same for the first row, which is also highlighted.
  void selectFirstRow();

 private:
  bool holds(std::int32_t row) const { return row >= 0 && row < numberOfRows(); }

  const Outlets& outlets_;
  ControllerState& state_;
  SettingsSheet& settings_;
  SelectedDeviceFacts& facts_;
};

}  // namespace touchpanel
