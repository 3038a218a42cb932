#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "calibration/CalibrationSolver.h"
#include "support/AllocationCount.h"

namespace touchpanel {
namespace {

enum class Model { Linear, Distorted };

using Patterns = std::vector<std::uint32_t>;

/// A solved block's coefficients in the order of the record, or the fact that there is none.
struct ExpectedAxis {
  bool solved;
  std::array<std::uint32_t, 10> coefficients;
};

/// Samples and results as bit patterns of singles, worked out by solver_reference.py.
struct SolverCase {
  const char* name;
  Model model;
  std::int32_t count;
  Patterns targetX, targetY, rawX, rawY;
  ExpectedAxis x, y;
};

const std::vector<SolverCase>& solverCases() {
  static const std::vector<SolverCase> cases = {
#include "solver_cases.inc"
  };
  return cases;
}

std::vector<float> floats(const Patterns& patterns) {
  std::vector<float> values;
  for (const auto pattern : patterns) values.push_back(std::bit_cast<float>(pattern));
  return values;
}

/// A block in which every byte differs from what a solver could have left there by accident.
_CALIB_PARAM marked() {
  _CALIB_PARAM param;
  std::array<std::uint8_t, sizeof(param)> image;
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(0xA0 + i);
  copyImage(image, param);
  return param;
}

/// The image of `marked()` after the fit: ten new coefficients when solved, and the same 18 bytes behind.
std::array<std::uint8_t, sizeof(_CALIB_PARAM)> expectedImage(const ExpectedAxis& axis) {
  auto image = imageOf(marked());
  if (axis.solved) std::memcpy(image.data(), axis.coefficients.data(), sizeof(axis.coefficients));
  return image;
}

/// Which of the many patterns of not-a-number a machine gives is its own affair.
std::array<std::uint8_t, sizeof(_CALIB_PARAM)> comparableImage(const _CALIB_PARAM& param) {
  auto image = imageOf(param);
  for (std::size_t i = 0; i < 10; ++i) {
    float coefficient = 0;
    std::memcpy(&coefficient, image.data() + 4 * i, 4);
    constexpr std::uint32_t kNotANumber = 0x7fc00000;
    if (std::isnan(coefficient)) std::memcpy(image.data() + 4 * i, &kNotANumber, 4);
  }
  return image;
}

TEST(CalibrationSolver, GivesTheSameBitsAsTheIndependentWorking) {
  ASSERT_GE(solverCases().size(), 8U);
  for (const auto& solverCase : solverCases()) {
    SCOPED_TRACE(solverCase.name);
    const auto targetX = floats(solverCase.targetX), targetY = floats(solverCase.targetY);
    const auto rawX = floats(solverCase.rawX), rawY = floats(solverCase.rawY);
    auto x = marked(), y = marked();
    const auto allocationsBefore = testing::allocationCount();
    const bool solved =
        generateCalibParam(targetX.data(), targetY.data(), rawX.data(), rawY.data(), solverCase.count, x, y,
                           solverCase.model == Model::Distorted, {rawX.data(), rawY.data()});
    EXPECT_EQ(testing::allocationCount(), allocationsBefore);
    EXPECT_EQ(solved, solverCase.x.solved && solverCase.y.solved);
    EXPECT_EQ(comparableImage(x), expectedImage(solverCase.x));
    EXPECT_EQ(comparableImage(y), expectedImage(solverCase.y));
  }
}

TEST(CalibrationSolver, UsesTheViewsOwnTouchesForAPlaneAndThePassedOnesForACubic) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const std::vector<float> unusable(25, nan);
  for (const auto& solverCase : solverCases()) {
    if (!solverCase.x.solved) continue;
    SCOPED_TRACE(solverCase.name);
    const bool distorted = solverCase.model == Model::Distorted;
    const auto targetX = floats(solverCase.targetX), targetY = floats(solverCase.targetY);
    const auto rawX = floats(solverCase.rawX), rawY = floats(solverCase.rawY);
    const auto& passedX = distorted ? rawX : unusable;
    const auto& passedY = distorted ? rawY : unusable;
    const OwnTouches own{(distorted ? unusable : rawX).data(), (distorted ? unusable : rawY).data()};
    auto x = marked(), y = marked();
    EXPECT_TRUE(generateCalibParam(targetX.data(), targetY.data(), passedX.data(), passedY.data(),
                                   solverCase.count, x, y, distorted, own));
    EXPECT_EQ(comparableImage(x), expectedImage(solverCase.x));
    EXPECT_EQ(comparableImage(y), expectedImage(solverCase.y));
  }
}

TEST(CalibrationSolver, ReproducesTheAffineMapThroughThreeTouches) {
  const std::array<float, 3> rawX{1000, 30000, 2000}, rawY{1500, 2500, 31000};
  std::array<float, 3> targets{};
  for (std::size_t k = 0; k < 3; ++k) targets[k] = 0.5F * rawX[k] - 0.25F * rawY[k] + 700;
  _CALIB_PARAM param{};
  ASSERT_TRUE(linearCalibrator(targets.data(), rawX.data(), rawY.data(), 3, param));
  EXPECT_NEAR(param.A10, 0.5, 1e-5);
  EXPECT_NEAR(param.A01, -0.25, 1e-5);
  EXPECT_NEAR(param.A00, 700, 0.05);
}

TEST(CalibrationSolver, PassesThroughTenTouchesInGeneralPosition) {
  std::array<float, 10> rawX{}, rawY{}, targets{};
  for (std::size_t k = 0; k < 10; ++k) {
    rawX[k] = static_cast<float>(k * 37 % 11);
    rawY[k] = static_cast<float>(k * k * 13 % 7);
    targets[k] = static_cast<float>(k * 29 % 17);
  }
  _CALIB_PARAM p{};
  ASSERT_TRUE(distortedCalibrator(targets.data(), rawX.data(), rawY.data(), 10, p));
  for (std::size_t k = 0; k < 10; ++k) {
    const double x = rawX[k], y = rawY[k];
    const double value = p.A03 * y * y * y + p.A12 * x * y * y + p.A21 * x * x * y + p.A30 * x * x * x +
                         p.A02 * y * y + p.A11 * x * y + p.A20 * x * x + p.A01 * y + p.A10 * x + p.A00;
    EXPECT_NEAR(value, targets[k], 0.05) << k;
  }
}

}  // namespace
}  // namespace touchpanel
