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

/// `param` was `marked()` before the fit: ten new coefficients when solved, and the same bytes behind.
void expectAxis(const _CALIB_PARAM& param, const ExpectedAxis& axis) {
  auto expected = imageOf(marked());
  if (axis.solved) std::memcpy(expected.data(), axis.coefficients.data(), sizeof(axis.coefficients));
  auto found = imageOf(param);
  // Which of the many patterns of not-a-number a machine gives is its own affair.
  constexpr std::uint32_t kNotANumber = 0x7fc00000;
  const float coefficients[] = {param.A03, param.A12, param.A21, param.A30, param.A02,
                                param.A11, param.A20, param.A01, param.A10, param.A00};
  for (std::size_t i = 0; i < std::size(coefficients); ++i)
    if (std::isnan(coefficients[i])) std::memcpy(found.data() + 4 * i, &kNotANumber, 4);
  EXPECT_EQ(found, expected);
}

TEST(CalibrationSolver, GivesTheSameBitsAsTheIndependentWorking) {
  ASSERT_EQ(solverCases().size(), 25U);
  for (const auto& [name, model, count, targetX, targetY, rawX, rawY, expectedX, expectedY] : solverCases()) {
    SCOPED_TRACE(name);
    const auto x = floats(targetX), y = floats(targetY);
    const auto touchedX = floats(rawX), touchedY = floats(rawY);
    // A plane is fitted to the view's own touches, a cubic to those that are passed.
    const bool distorted = model == Model::Distorted;
    const std::vector<float> unusable(25, std::numeric_limits<float>::quiet_NaN());
    const auto &passedX = distorted ? touchedX : unusable, &passedY = distorted ? touchedY : unusable;
    const auto &ownX = distorted ? unusable : touchedX, &ownY = distorted ? unusable : touchedY;
    auto solvedX = marked(), solvedY = marked();
    const auto allocationsBefore = testing::allocationCount();
    const bool solved = generateCalibParam(x.data(), y.data(), passedX.data(), passedY.data(), count, solvedX,
                                           solvedY, distorted, {ownX.data(), ownY.data()});
    EXPECT_EQ(testing::allocationCount(), allocationsBefore);
    EXPECT_EQ(solved, expectedX.solved && expectedY.solved);
    expectAxis(solvedX, expectedX);
    expectAxis(solvedY, expectedY);
  }
}

}  // namespace
}  // namespace touchpanel
