#pragma once

#include <optional>

#include "calibration/FitExamination.h"
#include "demo/measure/TouchError.h"

namespace touchpanel::demo {

/// A screen and its frame.
struct FrameSize {
  ScreenSize pixels;
  double widthMm = 0;
  double heightMm = 0;
  SurfaceScale scale() const;
};

/// A frame of 55 inches with the misalignment of the infrared example, and with `noise` raw units of scatter.
inline constexpr FrameSize kFiftyFiveInches{{1920, 1080}, 1210, 680};
firmware::Distortion wornFrame(double noise);

/// A calibration of a modelled sensor, without panel and driver: its touches, what the solver makes of them, and how far
/// the result is from the truth, which only a model knows.
class CalibrationTrial {
 public:
  /// `mode` is 4 or 25 targets. A `seed` repeats a trial.
  CalibrationTrial(const FrameSize& frame, const firmware::Distortion& distortion, std::int32_t mode,
                   std::uint32_t seed);

  /// The finger's touch of `target` is replaced by a second touch of the one before: it bounced, or a sleeve did.
  void bounce(std::size_t target);
  /// Touches `target` once more.
  void touchAgain(std::size_t target);

  /// Solves and judges the touches as a calibration does.
  FitExamination examine() const;
  /// Errors of the solution in millimetres, of touches without scatter at points all over the screen.
  ErrorSummary errorInMillimetres() const;

 private:
  bool solve(_CALIB_PARAMS& params) const;

  FrameSize frame_;
  firmware::TouchSurface surface_;
  std::int32_t mode_;
  TouchCollection touches_;
};

}  // namespace touchpanel::demo
