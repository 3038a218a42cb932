#pragma once

#include <cstdint>

#include "contract/CalibrationParameters.h"
#include "contract/DriverProperties.h"
#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel::driver {

/// The calibration that a driver instance holds: the lasting part of the "calibration" property. The touch
/// area is in logical units, bounds included; its lower bounds lie below its upper bounds.
struct CalibrationSettings {
  bool calibrateStatus = false;  ///< false: raw touches pass as they are
  _CALIB_PARAMS params{};
  std::int32_t minX = 0;
  std::int32_t minY = 0;
  std::int32_t maxX = kLogicalMaximum;
  std::int32_t maxY = kLogicalMaximum;
};

/// The capture part of one write to the "calibration" property.
struct CaptureRequest {
  bool statCalibrate = false;
  std::int32_t pointId = 0;
  bool hasStatCalibrate = false;
  bool hasPointId = false;
};

/// Takes what `dictionary` holds into `settings` and `capture`. kErrorBadArgument, and both unchanged, when
/// any key, type, size or value is not acceptable, or the dictionary makes a calibration valid that maps no
/// glass onto a screen.
Status write(CalibrationSettings& settings, CaptureRequest& capture, const Dictionary& dictionary);
/// Takes every acceptable entry of the lasting part and leaves the others out; false when there were others.
bool writeAcceptable(CalibrationSettings& settings, const Dictionary& dictionary);
/// "calibrateStatus", "calibParams" and the touch area.
Dictionary toDictionary(const CalibrationSettings& settings);
/// The "calibration" message that hands a driver instance what a touchscreen itself holds.
Dictionary calibrationMessage(bool calibrateStatus, const _CALIB_PARAMS& params);

}  // namespace touchpanel::driver
