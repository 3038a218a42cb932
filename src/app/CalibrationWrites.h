#pragma once

#include <vector>

#include "app/ControllerState.h"
#include "app/EarlierCalibrations.h"
#include "app/OutcomeSentences.h"
#include "app/Outlets.h"
#include "discovery/ContextStore.h"

namespace touchpanel {

/// Shows what became of each calibration that was to be written, and keeps those that were not, so that they can
/// be written again without touching the targets once more.
class CalibrationWrites {
 public:
  CalibrationWrites(const Outlets& outlets, const ControllerState& state, ContextStore& store,
                    EarlierCalibrations& earlier, StatusLine& statusLine)
      : outlets_(outlets), state_(state), store_(store), earlier_(earlier), statusLine_(statusLine) {}

  /// The context of `record` was to be written to the touchscreen of `entry`, which held `before`; that came to
  /// `written`, and `sentence` says so. An earlier one that was not written to it is forgotten. Both go into the
  /// touchscreen's history; when that fails and all else went well, the status line says that.
  void report(const DeviceEntry& entry, const _DEVICT_CONTEXT& before, CalibrationRecord record,
              const WriteOutcome& written, const StatusMessage& sentence);

  /// Writes the context again whose write failed last. Blocks like the first time.
  void repeat();

  /// Keeps only what belongs to a listed touchscreen, and has the control for repeat() follow.
  void update();

 private:
  void note(const DeviceEntry& entry, const _DEVICT_CONTEXT& context, const WriteOutcome& written);

  struct Pending {
    DeviceEntry entry;
    _DEVICT_CONTEXT context;
  };

  const Outlets& outlets_;
  const ControllerState& state_;
  ContextStore& store_;
  EarlierCalibrations& earlier_;
  StatusLine& statusLine_;
  std::vector<Pending> pending_;  ///< at most one for a touchscreen, the latest at the end
};

}  // namespace touchpanel
