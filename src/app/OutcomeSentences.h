#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "calibration/RunResult.h"
#include "discovery/WriteOutcome.h"
#include "history/CalibrationRecord.h"
#include "platform/StatusLine.h"

namespace touchpanel {

/// What a calibration was written for.
enum class WriteAttempt : std::uint8_t {
  Calibration,  ///< a run was accepted
  Reset,        ///< the calibration is to be none
  Restore,      ///< an earlier calibration is to be back
  Repetition    ///< of a write that failed
};

/// What the settings sheet applied came to.
struct SettingsOutcome {
  int taken = 0;                           ///< touchscreens whose driver instance confirmed the settings
  std::vector<std::string> notTaken = {};  ///< names of the others
  Status driver = kSuccess;                ///< of the first of those
  Status doubleClick = kSuccess;           ///< first failure of the system's settings
  Status file = kSuccess;                  ///< of saving them for the next start
};

// Every sentence about what came of a command, as it goes to the status line. `device` is the touchscreen's
// name.

/// Of a calibration that was sent to the driver instance with `driver` as its status, and written. Repetitions
/// leave the driver instance alone, and their sentences do, too.
StatusMessage sentenceOf(WriteAttempt attempt, std::string device, const WriteOutcome& written,
                         Status driver = kSuccess);
/// Of a run that is over; `run.written` matters for an accepted one only.
StatusMessage sentenceOf(const RunResult& run, std::string device);
StatusMessage sentenceOf(const SettingsOutcome& settings);
/// Of a calibration that is written and in use as it should be, while what was there before could not be kept in
/// the history, for the reason `kept`.
StatusMessage sentenceOfUnkept(const CalibrationRecord& record, std::string device, Status kept);
/// Of touch that was to be switched on or off.
StatusMessage sentenceOfTouch(bool enable, std::string device, Status driver);
/// Of a touchscreen that was to lie on another screen.
StatusMessage sentenceOfScreen(std::string device, Status driver);

}  // namespace touchpanel
