#pragma once

#include <optional>

#include "calibration/FitReport.h"
#include "discovery/DeviceEntry.h"
#include "discovery/WriteOutcome.h"
#include "history/CalibrationHistory.h"
#include "platform/Diagnostics.h"
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
  EarlierCalibrations(const HistoryPorts& ports, Diagnostics& diagnostics)
      : clock_(ports.clock), diagnostics_(diagnostics), history_(ports.files, ports.directory) {}

  CalibrationHistory::Contents of(const Dictionary& entry) const;
  /// Keeps that `entry` went over from `before` to `record`, whose time is set to now. Errors are
  /// those of CalibrationHistory::keep(), and print one line.
  Status keep(const Dictionary& entry, const _DEVICT_CONTEXT& before, CalibrationRecord record);

  /// Corrects what the newest record says of its write, when `context` is what it holds.
  void noteWritten(const Dictionary& entry, const _DEVICT_CONTEXT& context, const WriteOutcome& written);

 private:
  const WallClock& clock_;
  Diagnostics& diagnostics_;
  CalibrationHistory history_;
};

WrittenState writtenStateOf(const WriteOutcome& written);

/// What is kept of `report`, whose targets were shown on a screen of size `screen`, in points.
std::optional<CalibrationFit> keptFit(const FitReport& report, const Size& screen);

/// The newest of `records` that was accepted and is what `entry` holds; null when there is none.
const CalibrationRecord* acceptedIn(const std::vector<CalibrationRecord>& records, const Dictionary& entry);

/// What the last reset discarded: the calibration before the newest record, when that is a reset and `entry` was
/// not calibrated since. Null when there is nothing to undo.
const CalibrationRecord* discardedByReset(const std::vector<CalibrationRecord>& records,
                                          const Dictionary& entry);

}  // namespace touchpanel
