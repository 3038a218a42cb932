#include <gtest/gtest.h>

#include "calibration/CalibrationGrid.h"

namespace touchpanel {
namespace {

/// Positions and driver units of five targets in `box`, worked out separately, in single precision.
void expectTargets(Size box, const std::vector<std::pair<Point, Point>>& expected) {
  const Point targets[] = {fourPointTarget(1, box), fourPointTarget(2, box), gridTarget(2, 3, box),
                           gridTarget(4, 1, box), gridTarget(5, 4, box)};
  for (std::size_t i = 0; i < std::size(targets); ++i) {
    EXPECT_EQ(targets[i], expected.at(i).first) << i;
    EXPECT_EQ(driverUnits(targets[i], box), expected.at(i).second) << i;
  }
}

TEST(CalibrationGrid, PlacesTargetsToTheLastBitInBoxesOfAnySize) {
  expectTargets({1366, 768}, {{{0x1.446cccp+10F, 0x1.6ccccc0p+9F}, {0x1.e66298p+14F, 0x1.999676p+10F}},
                              {{0x1.113334p+6F, 0x1.333334p+5F}, {0x1.999668p+10F, 0x1.e66298p+14F}},
                              {{0x1.ef2ccep+9F, 0x1.166666p+9F}, {0x1.73304ep+14F, 0x1.199766p+13F}},
                              {{0x1.77a668p+8F, 0x1.a66660p+7F}, {0x1.199768p+13F, 0x1.73304ep+14F}},
                              {{0x1.446ccep+10F, 0x1.333320p+5F}, {0x1.e6629ap+14F, 0x1.e6629ap+14F}}});
  expectTargets({1023.25F, -611.5F},
                {{{0x1.e60b34p+9F, -0x1.227666p+9F}, {0x1.e6629ap+14F, 0x1.999672p+10F}},
                 {{0x1.994cccp+5F, -0x1.e93334p+4F}, {0x1.999664p+10F, 0x1.e6629ap+14F}},
                 {{0x1.72ed98p+9F, -0x1.bb5666p+8F}, {0x1.73304ap+14F, 0x1.199768p+13F}},
                 {{0x1.1964ccp+8F, -0x1.505334p+7F}, {0x1.199764p+13F, 0x1.73304cp+14F}},
                 {{0x1.e60b32p+9F, -0x1.e93340p+4F}, {0x1.e66298p+14F, 0x1.e6629ap+14F}}});
}

}  // namespace
}  // namespace touchpanel
