#include "driver/CalibrationCurve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace touchpanel::driver {

namespace {
double evaluate(const _CALIB_PARAM& a, double x, double y) {
  const double constantInX = ((a.A03 * y + a.A02) * y + a.A01) * y + a.A00;
  const double linearInX = (a.A12 * y + a.A11) * y + a.A10;
  const double squareInX = a.A21 * y + a.A20;
  return ((a.A30 * x + squareInX) * x + linearInX) * x + constantInX;
}

std::int32_t onAxis(double value, std::int32_t raw, std::int32_t minimum, std::int32_t maximum) {
  if (std::isnan(value)) return std::clamp(raw, minimum, maximum);
  return static_cast<std::int32_t>(
      std::lround(std::clamp(value, static_cast<double>(minimum), static_cast<double>(maximum))));
}

/// Cells of the grid over the glass, on each axis, by which a polynomial is judged.
constexpr std::size_t kCells = 64;
constexpr double kCell = static_cast<double>(kLogicalMaximum) / kCells;

struct Image {
  double x = 0;
  double y = 0;
  bool isFinite() const { return std::isfinite(x) && std::isfinite(y); }
  bool isOnScreen() const { return x >= 0 && x <= kLogicalMaximum && y >= 0 && y <= kLogicalMaximum; }
};

/// What a cell covers of the screen; 0 when a corner lies beside it.
double coveredBy(const Image& a, const Image& b, const Image& opposite, const Image& d) {
  if (!a.isOnScreen() || !b.isOnScreen() || !opposite.isOnScreen() || !d.isOnScreen()) return 0;
  return std::abs((opposite.x - a.x) * (d.y - b.y) - (opposite.y - a.y) * (d.x - b.x)) / 2;
}
}  // namespace

bool mapsSensibly(const _CALIB_PARAMS& params) {
  double covered = 0;
  std::array<Image, kCells + 1> above{};
  for (std::size_t row = 0; row <= kCells; ++row) {
    Image left;
    Image aboveLeft;
    for (std::size_t column = 0; column <= kCells; ++column) {
      const double x = kCell * static_cast<double>(column);
      const double y = kCell * static_cast<double>(row);
      const Image image{evaluate(params.X, x, y), evaluate(params.Y, x, y)};
      if (!image.isFinite()) return false;
      if (row > 0 && column > 0) covered += coveredBy(aboveLeft, above[column], image, left);
      aboveLeft = std::exchange(above[column], image);
      left = image;
    }
  }
  return covered >= kCell * kCell;
}

Point CalibrationCurve::map(Point raw) const {
  double x = raw.x;
  double y = raw.y;
  if (settings_.calibrateStatus) {
    x = evaluate(settings_.params.X, raw.x, raw.y);
    y = evaluate(settings_.params.Y, raw.x, raw.y);
  }
  return {onAxis(x, raw.x, settings_.minX, settings_.maxX), onAxis(y, raw.y, settings_.minY, settings_.maxY)};
}

void CalibrationCurve::apply(RawFrame& frame) const {
  for (std::size_t i = 0; i < frame.count; ++i) {
    auto& contact = frame.contacts[i];
    const auto mapped = map({contact.x, contact.y});
    contact.x = mapped.x;
    contact.y = mapped.y;
  }
}

}  // namespace touchpanel::driver
