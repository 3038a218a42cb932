#pragma once

#include <functional>
#include <memory>

#include "contract/CalibrationParameters.h"
#include "platform/Status.h"
#include "platform/TouchscreenIdentity.h"

namespace touchpanel::driver {

/// The calibration that a touchscreen itself holds.
struct HeldCalibration {
  bool calibrateStatus = false;
  _CALIB_PARAMS params{};
};

/// A read that is under way. Destroying it abandons the read; its callback then never comes.
class PendingRead {
 public:
  virtual ~PendingRead() = default;
};

/// Reads calibrations out of touchscreens without blocking the caller.
class CalibrationReader {
 public:
  using Done = std::function<void(Status, const HeldCalibration&)>;

  virtual ~CalibrationReader() = default;
  /// Opens the touchscreen exclusively (waiting while another program has it), reads its blocks, closes it and calls
  /// `done` once from the event loop, never from inside this call. A touchscreen without storage is read from where
  /// the control panel keeps its calibration; kErrorNotFound when that has none.
  virtual std::unique_ptr<PendingRead> start(const TouchscreenIdentity& identity, Done done) = 0;
};

}  // namespace touchpanel::driver
