#pragma once

#include <cstdint>

#include "protocol/DeviceContext.h"

namespace touchpanel {

/// One axis, three coefficients (A00, A01, A10; the other seven become 0), by least squares from `count` >= 3
/// samples. `targets`, `rawX` and `rawY` hold at least `count` entries: targets in the driver's logical
/// units, raw touches as the driver reports them. Returns false, leaving `destination` untouched, with too
/// few samples or when the determinant of the normal matrix is exactly 0. The `reserve` bytes are never
/// touched.
bool linearCalibrator(const float* targets, const float* rawX, const float* rawY, std::int32_t count,
                      _CALIB_PARAM& destination);

/// One axis, the full cubic of ten coefficients, from `count` >= 10 samples. False, with `destination`
/// untouched, with too few samples or when a column has no pivot that differs from 0.
bool distortedCalibrator(const float* targets, const float* rawX, const float* rawY, std::int32_t count,
                         _CALIB_PARAM& destination);

/// A calibration view's own raw touches, which a linear fit always uses.
struct OwnTouches {
  const float* fScrX;
  const float* fScrY;
};

/// Both axes. Distorted fits use `rawX` and `rawY`; linear ones deliberately use `own` instead. The Y fit
/// runs even when the X fit failed, so one block can be rewritten while the result is false.
bool generateCalibParam(const float* targetX, const float* targetY, const float* rawX, const float* rawY,
                        std::int32_t count, _CALIB_PARAM& destinationX, _CALIB_PARAM& destinationY,
                        bool distorted, const OwnTouches& own);

}  // namespace touchpanel
