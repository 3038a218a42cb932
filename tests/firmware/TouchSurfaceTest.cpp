#include <cmath>
#include <limits>

#include <gmock/gmock.h>

#include "firmware/TouchSurface.h"

namespace touchpanel::firmware {
namespace {

TEST(TouchSurface, MovesAPointAsItsDistortionSays) {
  struct Row {
    const char* name;
    Distortion distortion;
    ScreenFraction touched;
    RawPoint raw;
  };
  const Row rows[] = {
      {"none, middle", {}, {0.5, 0.5}, {16384, 16384}},
      {"none, upper left", {}, {0, 0}, {1, 1}},
      {"none, lower right", {}, {1, 1}, {32767, 32767}},
      {"offset", {.offsetX = 0.1, .offsetY = -0.1}, {0.5, 0.5}, {19660, 13107}},
      {"scale about the middle", {.scaleX = 0.5, .scaleY = 0.8}, {0, 0}, {8192, 3277}},
      {"skew", {.skewX = 0.1, .skewY = -0.2}, {0.5, 0}, {14745, 1}},
      {"skew", {.skewX = 0.1, .skewY = -0.2}, {0, 0.5}, {1, 19660}},
      {"barrel leaves the middle", {.barrel = 0.2}, {0.5, 0.5}, {16384, 16384}},
      {"barrel halves the way of a corner", {.barrel = -0.5}, {1, 1}, {24575, 24575}},
      {"barrel is a quarter of that half way out", {.barrel = -0.5}, {0.75, 0.75}, {23551, 23551}},
      {"off the sensor", {.offsetX = 2, .offsetY = -2}, {0.5, 0.5}, {32767, 1}},
      {"outside the screen", {}, {-3, 7}, {1, 32767}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(TouchSurface(row.distortion).rawFor(row.touched), row.raw) << row.name;
}

TEST(TouchSurface, NeverLeavesItsRange) {
  const double nothing = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  TouchSurface surface({.noise = 1e6});
  for (const double x : {nothing, infinite, -infinite, 1e300, 0.0, 0.5, 1.0})
    for (int i = 0; i < 100; ++i) {
      const auto raw = surface.rawFor({x, 0.5});
      EXPECT_THAT(raw.x, ::testing::AllOf(::testing::Ge(1), ::testing::Le(32767)));
      EXPECT_THAT(raw.y, ::testing::AllOf(::testing::Ge(1), ::testing::Le(32767)));
    }
}

TEST(TouchSurface, RepeatsItsNoiseFromTheSameSeed) {
  const Distortion noisy{.noise = 50};
  TouchSurface one(noisy, 3), same(noisy, 3), other(noisy, 4);
  int differing = 0;
  double squares = 0;
  constexpr int kSamples = 4000;
  for (int i = 0; i < kSamples; ++i) {
    const auto raw = one.rawFor({0.5, 0.5});
    EXPECT_EQ(raw, same.rawFor({0.5, 0.5}));
    if (raw != other.rawFor({0.5, 0.5})) ++differing;
    squares += (raw.x - 16383.5) * (raw.x - 16383.5);
  }
  EXPECT_GT(differing, kSamples / 2);
  EXPECT_NEAR(std::sqrt(squares / kSamples), 50, 3);
}

}  // namespace
}  // namespace touchpanel::firmware
