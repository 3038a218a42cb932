#pragma once

#include "calibration/CalibrationGrid.h"
#include "calibration/CubicMap.h"
#include "calibration/FitReport.h"
#include "calibration/LeastSquares.h"
#include "calibration/TouchCollection.h"

namespace touchpanel {

/// A finished grid after its solution, examined: what the solution makes of the touches, and where it and the touches
/// that fit each other part. Computed in double precision beside the solver, whose result it takes as it is.
class FitExamination {
 public:
  /// `isSolved` and `params` are what the solver returned for `touches`, which lie in a box of size `box`, in points, of
  /// a picture that is turned by `turn` quarter turns clockwise.
  FitExamination(const TouchCollection& touches, std::int32_t mode, bool isSolved,
                 const _CALIB_PARAMS& params, const Size& box, const SurfaceScale& scale,
                 std::int32_t turn = 0);

  const FitReport& report() const { return report_; }
  /// Where a finger on `touched` puts the pointer now, both in logical units of the picture: by the touches that fit,
  /// the finger is where they say, but the solution was bent by those that do not. `touched` itself when that cannot be
  /// said.
  Point landingOf(Point touched) const;

 private:
  bool folds(const TouchSamples& right) const;

  std::int32_t turn_;
  FitReport report_;
  CubicMap solution_;
  CubicMap byTheRight_;  ///< the fit of the touches that fit each other
};

}  // namespace touchpanel
