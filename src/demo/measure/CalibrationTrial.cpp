#include "demo/measure/CalibrationTrial.h"

#include <algorithm>
#include <cmath>

#include "calibration/CalibrationSolver.h"
#include "contract/DriverProperties.h"

namespace touchpanel::demo {
namespace {

Size boxOf(const ScreenSize& pixels) {
  return {static_cast<float>(pixels.width), static_cast<float>(pixels.height)};
}

}  // namespace

SurfaceScale FrameSize::scale() const { return {1, {{widthMm / pixels.width, heightMm / pixels.height}}}; }

firmware::Distortion wornFrame(double noise) {
  return {.offsetX = 0.012,
          .offsetY = -0.009,
          .scaleX = 0.965,
          .scaleY = 0.972,
          .skewX = 0.008,
          .skewY = -0.006,
          .barrel = 0.035,
          .noise = noise};
}

CalibrationTrial::CalibrationTrial(const FrameSize& frame, const firmware::Distortion& distortion,
                                   std::int32_t mode, std::uint32_t seed)
    : frame_(frame), surface_(distortion, seed), mode_(mode) {
  const auto box = boxOf(frame.pixels);
  while (touches_.isCollecting(mode)) {
    touches_.beginRow();
    const auto target = mode == kFourTargets ? fourPointTarget(touches_.iTouchIndex, box)
                                             : gridTarget(touches_.iObjRow, touches_.iObjPoints, box);
    touches_.noteTarget(driverUnits(target, box));
    const auto index = static_cast<std::size_t>(touches_.iTouchIndex);
    touches_.take(mode, 0, 0);
    touchAgain(index);
  }
}

void CalibrationTrial::touchAgain(std::size_t target) {
  constexpr double kMaximum = kLogicalMaximum;
  const auto raw = surface_.rawFor({touches_.fDspX[target] / kMaximum, touches_.fDspY[target] / kMaximum});
  touches_.fScrX[target] = static_cast<float>(raw.x);
  touches_.fScrY[target] = static_cast<float>(raw.y);
}

void CalibrationTrial::bounce(std::size_t target) {
  touches_.fScrX[target] = touches_.fScrX[target - 1];
  touches_.fScrY[target] = touches_.fScrY[target - 1];
}

bool CalibrationTrial::solve(_CALIB_PARAMS& params) const {
  const float *rawX = touches_.fScrX.data(), *rawY = touches_.fScrY.data();
  return generateCalibParam(touches_.fDspX.data(), touches_.fDspY.data(), rawX, rawY, mode_, params.X,
                            params.Y, mode_ != kFourTargets, {rawX, rawY});
}

FitExamination CalibrationTrial::examine() const {
  _CALIB_PARAMS params{};
  const bool solved = solve(params);
  return {touches_, mode_, solved, params, boxOf(frame_.pixels), frame_.scale()};
}

ErrorSummary CalibrationTrial::errorInMillimetres() const {
  _CALIB_PARAMS params{};
  if (!solve(params)) return {};
  const CubicMap solution(params);
  auto still = surface_.distortion();
  still.noise = 0;
  firmware::TouchSurface exact(still);
  std::vector<double> errors;
  for (const auto& point : testPoints()) {
    const auto raw = exact.rawFor(point);
    const auto landed = solution.at({static_cast<double>(raw.x), static_cast<double>(raw.y)});
    const auto fraction = [](double units) { return std::clamp(units / kLogicalMaximum, 0.0, 1.0); };
    errors.push_back(std::hypot((fraction(landed.x) - point.x) * frame_.widthMm,
                                (fraction(landed.y) - point.y) * frame_.heightMm));
  }
  return summaryOf(errors);
}

}  // namespace touchpanel::demo
