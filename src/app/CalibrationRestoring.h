#pragma once

#include "app/CalibrationWrites.h"
#include "calibration/TableReloader.h"
#include "discovery/ContextStore.h"
#include "discovery/DriverChannel.h"

namespace touchpanel {

/// Puts earlier calibrations back, into the driver and into the touchscreen.
class CalibrationRestoring {
 public:
  CalibrationRestoring(DriverChannel& driver, ContextStore& store, CalibrationWrites& writes,
                       TableReloader& controller)
      : driver_(driver), store_(store), writes_(writes), controller_(controller) {}

  /// Gives `record` to the touchscreen of `entry`, which must be a listed one, and to its driver instance; the entry
  /// holds it whatever came of the write. Blocks for the time of the write.
  void restore(const DeviceEntry& entry, const CalibrationRecord& record);

 private:
  DriverChannel& driver_;
  ContextStore& store_;
  CalibrationWrites& writes_;
  TableReloader& controller_;
};

}  // namespace touchpanel
