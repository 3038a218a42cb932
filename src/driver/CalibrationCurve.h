#pragma once

#include <cstdint>

#include "driver/CalibrationSettings.h"
#include "driver/Point.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// Whether touches can be used that go through `params`: every place of the glass has an image, and the images
/// cover at least a 64th of the screen on both axes, or as much in area. A glass that is smaller than the screen
/// is fine, and so is one that is larger, up to some 30 times; what misses the screen does not count, as a
/// cubic goes far astray beyond its targets. Not for a touch frame: takes a tenth of a millisecond.
bool mapsSensibly(const _CALIB_PARAMS& params);

/// Turns raw coordinates into those of the screen:
///
///     X = sum Aij x^i y^j over i + j <= 3, with the X block's coefficients; Y likewise with the Y block's
///
/// evaluated in double, rounded to the nearest unit and clamped to the touch area. Without a valid
/// calibration only the clamping is done. An axis whose sum is not a number keeps its raw coordinate.
class CalibrationCurve {
 public:
  void configure(const CalibrationSettings& settings) { settings_ = settings; }
  Point map(Point raw) const;
  void apply(RawFrame& frame) const;

 private:
  CalibrationSettings settings_;
};

}  // namespace touchpanel::driver
