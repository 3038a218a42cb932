#include <cmath>
#include <functional>

#include <gtest/gtest.h>

#include "calibration/CalibrationSolver.h"
#include "calibration/FitExamination.h"

namespace touchpanel::testing {
namespace {

constexpr Size kBox{1920, 1080};
const SurfaceScale kHalfMillimetres{1, {{0.5, 0.5}}};

/// Touches that hit their targets exactly, changed by `change`, and solved.
FitReport reportOf(std::int32_t mode, const std::function<void(TouchCollection&)>& change,
                   const SurfaceScale& scale = kHalfMillimetres) {
  TouchCollection touches;
  while (touches.isCollecting(mode)) {
    touches.beginRow();
    const auto target = mode == kFourTargets ? fourPointTarget(touches.iTouchIndex, kBox)
                                             : gridTarget(touches.iObjRow, touches.iObjPoints, kBox);
    const auto units = driverUnits(target, kBox);
    touches.noteTarget(units);
    touches.take(mode, static_cast<std::int32_t>(units.x), static_cast<std::int32_t>(units.y));
  }
  change(touches);
  _CALIB_PARAMS params{};
  const float *rawX = touches.fScrX.data(), *rawY = touches.fScrY.data();
  const bool solved = generateCalibParam(touches.fDspX.data(), touches.fDspY.data(), rawX, rawY, mode,
                                         params.X, params.Y, mode != kFourTargets, {rawX, rawY});
  return FitExamination(touches, mode, solved, params, kBox, scale).report();
}

TEST(FitExamination, ComparesWhereEachTouchLandsWithItsTarget) {
  const auto report = reportOf(kFourTargets, [](TouchCollection& touches) { touches.fScrX[3] += 400; });
  // The plane through four corners spreads the wrong 400 units over all of them, by 100 each.
  const double points = 100.0 / 32767 * 1920;
  ASSERT_EQ(report.count, 4U);
  for (const auto& [units, fits] : report.touches()) {
    EXPECT_NEAR(std::abs(units.landed.x - units.meant.x), 100, 3);
    EXPECT_NEAR(units.landed.y, units.meant.y, 3);
    EXPECT_TRUE(fits) << "four touches do not say which one is wrong";
  }
  EXPECT_NEAR(report.pixels.mean, points, 0.2);
  ASSERT_TRUE(report.millimetres);
  EXPECT_NEAR(report.millimetres->largest, points / 2, 0.1);
}

TEST(FitExamination, JudgesFourTouchesByAFingersWidth) {
  struct Case {
    const char* name;
    float wrongBy;  ///< units, of which 34 are 1 mm and 17 are a point
    SurfaceScale scale;
    bool disagrees;
  };
  for (const auto& [name, wrongBy, scale, disagrees] :
       {Case{"15 mm", 512, kHalfMillimetres, false}, Case{"25 mm", 853, kHalfMillimetres, true},
        Case{"30 points of unknown size", 512, {}, false},
        Case{"50 points of unknown size", 853, {}, true}}) {
    const auto report = reportOf(
        kFourTargets, [by = wrongBy](TouchCollection& touches) { touches.fScrX[2] += by; }, scale);
    EXPECT_EQ(report.disagrees, disagrees) << name;
    EXPECT_EQ(report.millimetres.has_value(), scale.millimetres.has_value()) << name;
  }
}

TEST(FitExamination, SaysWhetherThereIsASolutionAndWhetherItFoldsTheScreen) {
  struct Case {
    const char* name;
    std::int32_t mode;
    std::function<void(std::size_t k, float& x, float& y)> touch;
    bool isSolved;
    bool folds;
  };
  const Case cases[] = {
      {"as it should be", 25, [](std::size_t, float&, float&) {}, true, false},
      {"a mirrored sensor", 25, [](std::size_t, float& x, float&) { x = 32767 - x; }, true, false},
      {"a turned sensor", 4, [](std::size_t, float& x, float& y) { std::swap(x, y); }, true, false},
      {"bent around", 25, [](std::size_t, float& x, float&) { x = 32767 - std::abs(x - 12000); }, true, true},
      {"one point", 4, [](std::size_t, float& x, float& y) { x = y = 5000; }, false, false},
      {"one line", 4, [](std::size_t, float& x, float& y) { y = x / 3 + 7; }, true, true},
      {"no x", 25, [](std::size_t, float& x, float&) { x = 0; }, false, false},
  };
  for (const auto& each : cases) {
    const auto report = reportOf(each.mode, [&](TouchCollection& touches) {
      for (std::size_t k = 0; k < 25; ++k) each.touch(k, touches.fScrX[k], touches.fScrY[k]);
    });
    EXPECT_EQ(report.isSolved, each.isSolved) << each.name;
    EXPECT_EQ(report.folds, each.folds) << each.name;
    EXPECT_EQ(report.count, each.isSolved ? static_cast<std::size_t>(each.mode) : 0) << each.name;
  }
}

}  // namespace
}  // namespace touchpanel::testing
