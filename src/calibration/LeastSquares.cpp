#include "calibration/LeastSquares.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace touchpanel {
namespace {

/// Entries of samples that are not in use stay 0.
using Column = std::array<double, kMostSamples>;

double product(const Column& a, const Column& b) {
  return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

}  // namespace

void TouchSamples::add(const TouchSample& sample) {
  all[count] = sample;
  used[count++] = true;
}

std::size_t TouchSamples::usedCount() const {
  return static_cast<std::size_t>(std::ranges::count(used, true));
}

LeastSquares::LeastSquares(const TouchSamples& samples, std::size_t terms) : terms_(terms) {
  if (samples.usedCount() < terms_) return;
  normalise(samples);
  orthogonalise(samples);
}

void LeastSquares::normalise(const TouchSamples& samples) {
  constexpr double kHuge = std::numeric_limits<double>::max();
  PlanePoint least{kHuge, kHuge}, most{-kHuge, -kHuge};
  for (std::size_t k = 0; k < samples.count; ++k) {
    if (!samples.used[k]) continue;
    const auto& raw = samples.all[k].raw;
    least = {std::min(least.x, raw.x), std::min(least.y, raw.y)};
    most = {std::max(most.x, raw.x), std::max(most.y, raw.y)};
  }
  centre_ = {(least.x + most.x) / 2, (least.y + most.y) / 2};
  radius_ = {std::max((most.x - least.x) / 2, 1.0), std::max((most.y - least.y) / 2, 1.0)};
}

LeastSquares::Row LeastSquares::termsAt(PlanePoint raw) const {
  const double x = (raw.x - centre_.x) / radius_.x, y = (raw.y - centre_.y) / radius_.y;
  return {1, x, y, x * x, x * y, y * y, x * x * x, x * x * y, x * y * y, y * y * y};
}

void LeastSquares::orthogonalise(const TouchSamples& samples) {
  constexpr double kDependent = 1e-7;  // of a column's length before
  std::array<Column, kCubicTerms> q{};
  Column meantX{}, meantY{};
  for (std::size_t k = 0; k < samples.count; ++k) {
    if (!samples.used[k]) continue;
    const auto row = termsAt(samples.all[k].raw);
    for (std::size_t j = 0; j < terms_; ++j) q[j][k] = row[j];
    meantX[k] = samples.all[k].meant.x;
    meantY[k] = samples.all[k].meant.y;
  }
  Row rightX{}, rightY{};
  for (std::size_t j = 0; j < terms_; ++j) {
    const double before = std::sqrt(product(q[j], q[j]));
    for (int pass = 0; pass < 2; ++pass)
      for (std::size_t i = 0; i < j; ++i) {
        const double part = product(q[i], q[j]);
        upper_[i][j] += part;
        for (std::size_t k = 0; k < kMostSamples; ++k) q[j][k] -= part * q[i][k];
      }
    upper_[j][j] = std::sqrt(product(q[j], q[j]));
    if (!(upper_[j][j] > kDependent * before)) return;
    for (auto& entry : q[j]) entry /= upper_[j][j];
    rightX[j] = product(q[j], meantX);
    rightY[j] = product(q[j], meantY);
  }
  Row x{}, y{};
  for (std::size_t j = terms_; j-- > 0;) {
    x[j] = rightX[j];
    y[j] = rightY[j];
    for (std::size_t i = j + 1; i < terms_; ++i) {
      x[j] -= upper_[j][i] * x[i];
      y[j] -= upper_[j][i] * y[i];
    }
    x[j] /= upper_[j][j];
    y[j] /= upper_[j][j];
  }
  map_ = CubicMap(x, y, centre_, radius_);
  determined_ = std::isfinite(x[0]) && std::isfinite(y[0]);
}

double LeastSquares::leverage(PlanePoint raw) const {
  // z = upper^-T x by forward substitution.
  auto z = termsAt(raw);
  double length = 0;
  for (std::size_t j = 0; j < terms_; ++j) {
    for (std::size_t i = 0; i < j; ++i) z[j] -= upper_[i][j] * z[i];
    z[j] /= upper_[j][j];
    length += z[j] * z[j];
  }
  return length;
}

}  // namespace touchpanel
