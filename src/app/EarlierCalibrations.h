#pragma once

#include <optional>

#include "discovery/DeviceEntry.h"
#include "history/CalibrationHistory.h"
#include "platform/WallClock.h"

namespace touchpanel {

/// Where histories are kept, and by which time. Nothing is owned.
struct HistoryPorts {
  PropertyListFiles& files;
  const WallClock& clock;
  std::string directory;
};

/// The history of the listed touchscreens.
class EarlierCalibrations {
 public:
  explicit EarlierCalibrations(const HistoryPorts& ports)
      : clock_(ports.clock), history_(ports.files, ports.directory) {}

  CalibrationHistory::Contents of(const Dictionary& entry) const;
  /// Keeps that `entry` went over from `before` to `record`, whose time is set to now. Errors are
  /// those of CalibrationHistory::keep().
  Status keep(const Dictionary& entry, const _DEVICT_CONTEXT& before, CalibrationRecord record);

 private:
  const WallClock& clock_;
  CalibrationHistory history_;
};

/// The newest of `records` that was accepted and is what `entry` holds; null when there is none.
const CalibrationRecord* acceptedIn(const std::vector<CalibrationRecord>& records, const Dictionary& entry);

/// What the last reset discarded: the calibration before the newest record, when that is a reset and `entry` was
/// not calibrated since. Null when there is nothing to undo.
const CalibrationRecord* discardedByReset(const std::vector<CalibrationRecord>& records,
                                          const Dictionary& entry);

}  // namespace touchpanel
