#pragma once

#include <cstdint>
#include <random>

namespace touchpanel::firmware {

/// A point of the screen in fractions of its width and height; (0, 0) is the upper-left corner.
struct ScreenFraction {
  double x = 0;
  double y = 0;
};

/// What a touchscreen's sensor reports for a touch: raw units, nominally 0..32767 on both axes, y downwards.
struct RawPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const RawPoint&) const = default;
};

/// How a sensor sits on its screen. Lengths are fractions of the screen.
struct Distortion {
  double offsetX = 0, offsetY = 0;
  double scaleX = 1, scaleY = 1;
  double skewX = 0, skewY = 0;  ///< x moves by skewX per unit of y from the middle, and the reverse
  double barrel = 0;            ///< strength k of r' = r (1 + k r^2) about the middle, r = 1 at a corner
  double noise = 0;             ///< standard deviation, in raw units
};

/// The sensor side of a touchscreen: from a touched point of the screen to the raw coordinates it reports,
/// never 0 (which means "no touch" to a panel) and never outside 1..32767. Noise comes from a seeded
/// generator, so a run repeats.
class TouchSurface {
 public:
  explicit TouchSurface(Distortion distortion, std::uint32_t seed = 1);
  RawPoint rawFor(ScreenFraction touched);
  const Distortion& distortion() const { return distortion_; }

 private:
  double noise();

  Distortion distortion_;
  std::mt19937 random_;
};

}  // namespace touchpanel::firmware
