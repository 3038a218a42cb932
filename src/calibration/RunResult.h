#pragma once

#include <cstdint>

#include "discovery/WriteOutcome.h"
#include "platform/Status.h"

namespace touchpanel {

/// How a calibration run ended, and what it left behind.
struct RunResult {
  enum class Ending : std::uint8_t {
    Running,
    Accepted,   ///< OK: `written` says what became of it
    TakenBack,  ///< the driver was given what was there before the run
    Left,       ///< over without a message: the driver keeps the trial where there was one
    NoDriver    ///< the driver instance is gone or cannot be talked to
  };
  Ending ending = Ending::Running;
  bool wasTried = false;     ///< the driver was handed a trial
  bool isSolved = false;     ///< what was collected last has a solution, which was the trial
  Status driver = kSuccess;  ///< of the message that decided what is in force, or why there is no driver
  WriteOutcome written = {};
  bool operator==(const RunResult&) const = default;
};

}  // namespace touchpanel
