#pragma once

#include "contract/CalibrationParameters.h"
#include "platform/Value.h"

namespace touchpanel::testing {

/// A calibration that moves each touch by this much, in logical units, as it is held and as it is sent.
inline _CALIB_PARAMS shiftedBy(float dx, float dy) {
  _CALIB_PARAMS params{};
  params.X.A10 = params.Y.A01 = 1;
  params.X.A00 = dx;
  params.Y.A00 = dy;
  return params;
}

inline Bytes bytesOf(const _CALIB_PARAMS& params) {
  const auto image = imageOf(params);
  return {image.begin(), image.end()};
}

}  // namespace touchpanel::testing
