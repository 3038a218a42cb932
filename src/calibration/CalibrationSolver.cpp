#include "calibration/CalibrationSolver.h"

#include <array>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <utility>

// The result is defined to the last bit, so the order of every operation below is part of the contract: no
// sum may be reassociated, no product fused, no pivot chosen for its size, no input scaled. Only work that
// yields the same bits, such as a power or a quotient that is used again, may be done once and kept.
static_assert(FLT_EVAL_METHOD == 0, "single and double precision are evaluated in their own type");

namespace touchpanel {
namespace {

template <std::size_t Size>
using Matrix = std::array<std::array<double, Size>, Size>;

/// Powers of the two raw coordinates in one term of a polynomial.
struct Term {
  std::size_t x;
  std::size_t y;
};

/// The terms of a polynomial of `Degree` in the order of the unknowns: by the power of x, then that of y.
template <std::size_t Degree>
constexpr auto makeTerms() {
  std::array<Term, (Degree + 1) * (Degree + 2) / 2> terms{};
  std::size_t next = 0;
  for (std::size_t x = 0; x <= Degree; ++x)
    for (std::size_t y = 0; x + y <= Degree; ++y) terms[next++] = {x, y};
  return terms;
}

template <std::size_t Degree>
constexpr auto kTerms = makeTerms<Degree>();

template <std::size_t Count>
std::array<double, Count> powersOf(float value) {
  std::array<double, Count> powers;
  for (std::size_t p = 0; p < Count; ++p) powers[p] = std::pow(double{value}, static_cast<double>(p));
  return powers;
}

/// The sums over all samples that one fit needs.
template <std::size_t Degree>
struct Sums {
  Matrix<2 * Degree + 1> moments{};  ///< [p][q]: sum of x^p y^q
  Matrix<Degree + 1> rightSide{};    ///< [i][j]: sum of t x^i y^j
};

template <std::size_t Degree>
Sums<Degree> sumUp(const float* targets, const float* rawX, const float* rawY, std::int32_t count) {
  Sums<Degree> sums;
  for (std::int32_t k = 0; k < count; ++k) {
    const auto x = powersOf<2 * Degree + 1>(rawX[k]);
    const auto y = powersOf<2 * Degree + 1>(rawY[k]);
    const double target{targets[k]};
    for (const auto& [p, q] : kTerms<2 * Degree>) sums.moments[p][q] += x[p] * y[q];
    for (const auto& [i, j] : kTerms<Degree>) sums.rightSide[i][j] += (target * x[i]) * y[j];
  }
  return sums;
}

template <std::size_t Degree>
auto normalMatrix(const Sums<Degree>& sums) {
  constexpr auto& terms = kTerms<Degree>;
  Matrix<terms.size()> normal{};
  for (std::size_t row = 0; row < terms.size(); ++row)
    for (std::size_t column = 0; column < terms.size(); ++column)
      normal[row][column] = sums.moments[terms[row].x + terms[column].x][terms[row].y + terms[column].y];
  return normal;
}

/// By the adjugate. False when the determinant is exactly 0.
bool invert(const Matrix<3>& normal, Matrix<3>& inverse) {
  const auto& [row0, row1, row2] = normal;
  const auto [a, b, c] = row0;
  const auto [d, e, f] = row1;
  const auto [g, h, i] = row2;
  const double det = a * e * i + b * f * g + c * d * h - a * f * h - b * d * i - c * e * g;
  if (det == 0.0) return false;
  inverse = {{{(e * i - f * h) / det, (c * h - b * i) / det, (b * f - c * e) / det},
              {(f * g - d * i) / det, (a * i - c * g) / det, (c * d - a * f) / det},
              {(d * h - e * g) / det, (b * g - a * h) / det, (a * e - b * d) / det}}};
  return true;
}

/// Subtracts the `source` row, divided by `pivot` and then multiplied by `factor`, from `target`.
void subtractScaled(std::array<double, 10>& target, const std::array<double, 10>& source, double pivot,
                    double factor) {
  for (std::size_t j = 0; j < target.size(); ++j) target[j] = target[j] - (source[j] / pivot) * factor;
}

/// By Gauss and Jordan, with the first pivot that differs from 0. False when a column has none.
bool invert(Matrix<10> normal, Matrix<10>& inverse) {
  inverse = {};
  for (std::size_t row = 0; row < 10; ++row) inverse[row][row] = 1.0;
  for (std::size_t column = 0; column < 10; ++column) {
    std::size_t found = column;
    while (found < 10 && normal[found][column] == 0.0) ++found;
    if (found == 10) return false;
    std::swap(normal[found], normal[column]);
    std::swap(inverse[found], inverse[column]);
    const double pivot = normal[column][column];
    for (std::size_t row = 0; row < 10; ++row) {
      if (row == column) continue;
      const double factor = normal[row][column];
      subtractScaled(normal[row], normal[column], pivot, factor);
      subtractScaled(inverse[row], inverse[column], pivot, factor);
    }
  }
  for (std::size_t row = 0; row < 10; ++row) {
    const double divisor = normal[row][row];
    for (auto& entry : inverse[row]) entry /= divisor;
  }
  return true;
}

/// Fits the coefficients of one axis; those beyond `Degree` become 0. False, with `destination` untouched, when
/// there is no solution.
template <std::size_t Degree>
bool fit(const float* targets, const float* rawX, const float* rawY, std::int32_t count,
         _CALIB_PARAM& destination) {
  constexpr auto& terms = kTerms<Degree>;
  if (count < static_cast<std::int32_t>(terms.size())) return false;
  const auto sums = sumUp<Degree>(targets, rawX, rawY, count);
  Matrix<terms.size()> inverse;
  if (!invert(normalMatrix<Degree>(sums), inverse)) return false;
  std::array<std::array<float, 4>, 4> result{};  // [i][j] belongs to x^i y^j
  for (std::size_t row = 0; row < terms.size(); ++row) {
    float& coefficient = result[terms[row].x][terms[row].y];
    // The products are double, their sum is single.
    for (std::size_t column = 0; column < terms.size(); ++column)
      coefficient +=
          static_cast<float>(inverse[row][column] * sums.rightSide[terms[column].x][terms[column].y]);
  }
  destination.A03 = result[0][3];
  destination.A12 = result[1][2];
  destination.A21 = result[2][1];
  destination.A30 = result[3][0];
  destination.A02 = result[0][2];
  destination.A11 = result[1][1];
  destination.A20 = result[2][0];
  destination.A01 = result[0][1];
  destination.A10 = result[1][0];
  destination.A00 = result[0][0];
  return true;
}

}  // namespace

bool linearCalibrator(const float* targets, const float* rawX, const float* rawY, std::int32_t count,
                      _CALIB_PARAM& destination) {
  return fit<1>(targets, rawX, rawY, count, destination);
}

bool distortedCalibrator(const float* targets, const float* rawX, const float* rawY, std::int32_t count,
                         _CALIB_PARAM& destination) {
  return fit<3>(targets, rawX, rawY, count, destination);
}

bool generateCalibParam(const float* targetX, const float* targetY, const float* rawX, const float* rawY,
                        std::int32_t count, _CALIB_PARAM& destinationX, _CALIB_PARAM& destinationY,
                        bool distorted, const OwnTouches& own) {
  if (distorted) {
    const bool solvedX = distortedCalibrator(targetX, rawX, rawY, count, destinationX);
    const bool solvedY = distortedCalibrator(targetY, rawX, rawY, count, destinationY);
    return solvedX && solvedY;
  }
  const bool solvedX = linearCalibrator(targetX, own.fScrX, own.fScrY, count, destinationX);
  const bool solvedY = linearCalibrator(targetY, own.fScrX, own.fScrY, count, destinationY);
  return solvedX && solvedY;
}

}  // namespace touchpanel
