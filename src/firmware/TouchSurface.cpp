#include "firmware/TouchSurface.h"

#include <cmath>
#include <numbers>

namespace touchpanel::firmware {
namespace {

constexpr double kMiddle = 0.5;
constexpr double kSmallestRaw = 1;
constexpr double kLargestRaw = 32767;
/// Squared distance of a corner from the middle, in fractions of the screen.
constexpr double kCornerSquared = 2 * kMiddle * kMiddle;

std::int32_t rawUnits(double fractionFromMiddle, double noise) {
  const double value = std::round((kMiddle + fractionFromMiddle) * kLargestRaw + noise);
  // Written so that a value that is not a number lands inside, too.
  if (!(value >= kSmallestRaw)) return static_cast<std::int32_t>(kSmallestRaw);
  return static_cast<std::int32_t>(value < kLargestRaw ? value : kLargestRaw);
}

}  // namespace

TouchSurface::TouchSurface(Distortion distortion, std::uint32_t seed)
    : distortion_(distortion), random_(seed) {}

RawPoint TouchSurface::rawFor(ScreenFraction touched) {
  const double fromMiddleX = touched.x - kMiddle;
  const double fromMiddleY = touched.y - kMiddle;
  const double skewedX = distortion_.scaleX * (fromMiddleX + distortion_.skewX * fromMiddleY);
  const double skewedY = distortion_.scaleY * (fromMiddleY + distortion_.skewY * fromMiddleX);
  const double radiusSquared = (skewedX * skewedX + skewedY * skewedY) / kCornerSquared;
  const double stretch = 1 + distortion_.barrel * radiusSquared;
  return {rawUnits(skewedX * stretch + distortion_.offsetX, noise()),
          rawUnits(skewedY * stretch + distortion_.offsetY, noise())};
}

// Box and Muller's transform; the standard library's normal distribution differs between libraries, and a run
// is to repeat everywhere.
double TouchSurface::noise() {
  if (distortion_.noise <= 0) return 0;
  constexpr double kRange = 4294967296.0;
  const double radius = (static_cast<double>(random_()) + 1) / kRange;  // never 0
  const double angle = static_cast<double>(random_()) / kRange;
  return distortion_.noise * std::sqrt(-2 * std::log(radius)) * std::cos(2 * std::numbers::pi * angle);
}

}  // namespace touchpanel::firmware
