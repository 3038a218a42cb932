#pragma once

#include <cstdint>

#include "discovery/DeviceEntry.h"

namespace touchpanel {

/// The part of the main controller that discovery works on.
class DeviceListOwner {
 public:
  virtual ~DeviceListOwner() = default;
  virtual DeviceListArray& deviceListArray() = 0;
  /// The driver settings as of the last arrival; replaced whole by the next one.
  virtual Dictionary& drvConfigDict() = 0;
  /// Has the device table ask for everything again; the settings shown stay as they are.
  virtual void reloadDeviceTable() = 0;
  /// Makes the entry at `row`, which exists, the selection and shows its settings.
  virtual bool shouldSelectRow(std::int32_t row) = 0;
};

}  // namespace touchpanel
