#include "driver/CalibrationCurve.h"

#include <algorithm>
#include <cmath>

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
}  // namespace

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
