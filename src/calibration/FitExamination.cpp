#include "calibration/FitExamination.h"

#include <algorithm>
#include <utility>

#include "calibration/FoldCheck.h"
#include "calibration/WrongTouches.h"
#include "contract/DriverProperties.h"

namespace touchpanel {
namespace {

// Nobody notices a touch that is wrong by less, however well the others fit.
constexpr double kSmallestMillimetres = 1;
constexpr double kSmallestPixels = 3;
// Three of four touches fix a plane, and say where the fourth should be. A finger aims to some 2.5 mm on each axis,
// which the plane turns into 5 mm at the fourth touch, so 20 mm are exceeded by chance in one run of some thousands;
// a bounced touch is wrong by far more. Where the size of the screen is unknown, the height of a button, which is
// made for fingers, stands for that.
constexpr double kDisagreementMillimetres = 20;
constexpr double kDisagreementPoints = 40;
/// The outermost targets lie a twentieth of the screen inside, so the screen goes on beyond the touches by a
/// twentieth of it, which is an eighteenth of what they span.
constexpr double kBeyondTargets = 1.0 / 18;

PlanePoint planePoint(Point point) { return {point.x, point.y}; }

Point clampedToUnits(PlanePoint point) {
  const auto clamped = [](double value) {
    return static_cast<float>(std::clamp(value, 0.0, static_cast<double>(kLogicalMaximum)));
  };
  return {clamped(point.x), clamped(point.y)};
}

TouchSamples samplesOf(const TouchCollection& touches, std::size_t count) {
  TouchSamples samples;
  for (std::size_t k = 0; k < count; ++k)
    samples.add({{touches.fScrX[k], touches.fScrY[k]}, {touches.fDspX[k], touches.fDspY[k]}});
  return samples;
}

/// What a wrong touch on the glass is measured in: millimetres where the screen's size is known, else points.
struct Measure {
  TouchTolerance wrong;
  double disagreement;
};

/// `box` and `scale` are those of the picture; after an odd turn the glass has its axes exchanged.
Measure measureOf(Size box, SurfaceScale scale, std::int32_t turn) {
  if (turn % 2 != 0) {
    std::swap(box.width, box.height);
    if (scale.millimetres) std::swap(scale.millimetres->perPointX, scale.millimetres->perPointY);
  }
  const double pointsX = static_cast<double>(box.width) / kLogicalMaximum;
  const double pointsY = static_cast<double>(box.height) / kLogicalMaximum;
  const auto& mm = scale.millimetres;
  if (mm && mm->perPointX > 0 && mm->perPointY > 0)
    return {{pointsX * mm->perPointX, pointsY * mm->perPointY, kSmallestMillimetres},
            kDisagreementMillimetres};
  return {{pointsX, pointsY, kSmallestPixels / scale.pixelsPerPoint}, kDisagreementPoints};
}

bool disagree(const TouchSamples& samples, const Measure& measure) {
  for (std::size_t k = 0; k < samples.count; ++k)
    if (distanceByTheOthers(samples, kLinearTerms, k, measure.wrong) > measure.disagreement) return true;
  return false;
}

void addErrors(FitReport& report, const Size& box, const SurfaceScale& scale) {
  std::array<LandedTouch, kMostSamples> places;
  for (std::size_t k = 0; k < report.count; ++k) {
    const auto& units = report.all[k].units;
    places[k] = {viewPoint(units.meant, box), viewPoint(units.landed, box)};
  }
  const std::span inPoints(places.data(), report.count);
  report.pixels = errorsInPixels(inPoints, scale);
  report.millimetres = errorsInMillimetres(inPoints, scale);
}

}  // namespace

FitExamination::FitExamination(const TouchCollection& touches, std::int32_t mode, bool isSolved,
                               const _CALIB_PARAMS& params, const Size& box, const SurfaceScale& scale,
                               std::int32_t turn)
    : turn_(turn), solution_(params) {
  report_.isSolved = isSolved;
  if (!isSolved) return;
  const bool four = mode == kFourTargets;
  auto samples = samplesOf(touches, four ? kFourTargets : kTwentyFiveTargets);
  const std::size_t terms = four ? kLinearTerms : kCubicTerms;
  const auto measure = measureOf(box, scale, turn);
  const auto wrong = wrongTouches(samples, terms, measure.wrong);
  report_.count = samples.count;
  for (std::size_t k = 0; k < samples.count; ++k) {
    const auto landed = solution_.at(samples.all[k].raw);
    report_.all[k] = {{inPicture({touches.fDspX[k], touches.fDspY[k]}, turn),
                       inPicture({static_cast<float>(landed.x), static_cast<float>(landed.y)}, turn)},
                      !wrong[k]};
    samples.used[k] = !wrong[k];
  }
  const LeastSquares right(samples, terms);
  byTheRight_ = right.map();
  report_.disagrees = four && disagree(samples, measure);
  report_.folds = !right.isDetermined() || folds(samples);
  addErrors(report_, box, scale);
}

bool FitExamination::folds(const TouchSamples& right) const {
  RawArea area{{kLogicalMaximum, kLogicalMaximum}, {0, 0}};
  for (std::size_t k = 0; k < right.count; ++k) {
    if (!right.used[k]) continue;
    const auto& raw = right.all[k].raw;
    area.least = {std::min(area.least.x, raw.x), std::min(area.least.y, raw.y)};
    area.most = {std::max(area.most.x, raw.x), std::max(area.most.y, raw.y)};
  }
  const double beyondX = (area.most.x - area.least.x) * kBeyondTargets;
  const double beyondY = (area.most.y - area.least.y) * kBeyondTargets;
  const double end = kLogicalMaximum;
  return foldsOn(solution_, {{std::max(area.least.x - beyondX, 0.0), std::max(area.least.y - beyondY, 0.0)},
                             {std::min(area.most.x + beyondX, end), std::min(area.most.y + beyondY, end)}});
}

Point FitExamination::landingOf(Point touched) const {
  if (!report_.isSolved) return touched;
  const auto glass = planePoint(onGlass(touched, turn_));
  const auto raw = byTheRight_.inverse(glass, glass);
  return raw ? inPicture(clampedToUnits(solution_.at(*raw)), turn_) : touched;
}

}  // namespace touchpanel
