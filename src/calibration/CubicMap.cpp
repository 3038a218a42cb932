#include "calibration/CubicMap.h"

#include <cmath>

namespace touchpanel {
namespace {

CubicMap::Coefficients coefficientsOf(const _CALIB_PARAM& block) {
  return {block.A00, block.A10, block.A01, block.A20, block.A11,
          block.A02, block.A30, block.A21, block.A12, block.A03};
}

double value(const CubicMap::Coefficients& c, PlanePoint p) {
  return c[0] + p.x * (c[1] + p.x * (c[3] + p.x * c[6] + p.y * c[7]) + p.y * (c[4] + p.y * c[8])) +
         p.y * (c[2] + p.y * (c[5] + p.y * c[9]));
}

PlanePoint gradient(const CubicMap::Coefficients& c, PlanePoint p) {
  return {c[1] + p.x * (2 * c[3] + 3 * c[6] * p.x + 2 * c[7] * p.y) + p.y * (c[4] + c[8] * p.y),
          c[2] + p.y * (2 * c[5] + 3 * c[9] * p.y + 2 * c[8] * p.x) + p.x * (c[4] + c[7] * p.x)};
}

}  // namespace

CubicMap::CubicMap(const _CALIB_PARAMS& params)
    : x_(coefficientsOf(params.X)), y_(coefficientsOf(params.Y)) {}

PlanePoint CubicMap::normalised(PlanePoint raw) const {
  return {(raw.x - centre_.x) / radius_.x, (raw.y - centre_.y) / radius_.y};
}

PlanePoint CubicMap::at(PlanePoint raw) const {
  const auto p = normalised(raw);
  return {value(x_, p), value(y_, p)};
}

CubicMap::Slopes CubicMap::slopes(PlanePoint raw) const {
  const auto p = normalised(raw);
  const auto ofX = gradient(x_, p), ofY = gradient(y_, p);
  return {{ofX.x / radius_.x, ofX.y / radius_.y}, {ofY.x / radius_.x, ofY.y / radius_.y}};
}

double CubicMap::jacobian(PlanePoint raw) const {
  const auto [x, y] = slopes(raw);
  return x.x * y.y - x.y * y.x;
}

std::optional<PlanePoint> CubicMap::inverse(PlanePoint image, PlanePoint start) const {
  constexpr int kSteps = 30;
  constexpr double kCloseEnough = 0.01;  // of a raw unit
  auto raw = start;
  for (int step = 0; step < kSteps; ++step) {
    const auto reached = at(raw);
    const auto [x, y] = slopes(raw);
    const double determinant = x.x * y.y - x.y * y.x;
    const PlanePoint missing{image.x - reached.x, image.y - reached.y};
    const PlanePoint change{(missing.x * y.y - missing.y * x.y) / determinant,
                            (missing.y * x.x - missing.x * y.x) / determinant};
    raw = {raw.x + change.x, raw.y + change.y};
    const double length = std::hypot(change.x, change.y);
    if (!std::isfinite(length)) return std::nullopt;
    if (length < kCloseEnough) return raw;
  }
  return std::nullopt;
}

}  // namespace touchpanel
