#include <gtest/gtest.h>

#include "calibration/CalibrationGrid.h"

namespace touchpanel {
namespace {

/// One size of box with points worked out separately, in single precision: position and driver units.
struct GridCase {
  Size box;
  struct Expected {
    Point position;
    Point units;
  };
  Expected upperRightOfFour, lowerLeftOfFour, row2Column3, row4Column1, row5Column4;
};

const GridCase kCases[] = {
    {{1366, 768},
     {{0x1.446cccp+10F, 0x1.6ccccc0p+9F}, {0x1.e66298p+14F, 0x1.999676p+10F}},
     {{0x1.113334p+6F, 0x1.333334p+5F}, {0x1.999668p+10F, 0x1.e66298p+14F}},
     {{0x1.ef2ccep+9F, 0x1.166666p+9F}, {0x1.73304ep+14F, 0x1.199766p+13F}},
     {{0x1.77a668p+8F, 0x1.a66660p+7F}, {0x1.199768p+13F, 0x1.73304ep+14F}},
     {{0x1.446ccep+10F, 0x1.333320p+5F}, {0x1.e6629ap+14F, 0x1.e6629ap+14F}}},
    {{1023.25F, -611.5F},
     {{0x1.e60b34p+9F, -0x1.227666p+9F}, {0x1.e6629ap+14F, 0x1.999672p+10F}},
     {{0x1.994cccp+5F, -0x1.e93334p+4F}, {0x1.999664p+10F, 0x1.e6629ap+14F}},
     {{0x1.72ed98p+9F, -0x1.bb5666p+8F}, {0x1.73304ap+14F, 0x1.199768p+13F}},
     {{0x1.1964ccp+8F, -0x1.505334p+7F}, {0x1.199764p+13F, 0x1.73304cp+14F}},
     {{0x1.e60b32p+9F, -0x1.e93340p+4F}, {0x1.e66298p+14F, 0x1.e6629ap+14F}}},
};

TEST(CalibrationGrid, PlacesTargetsToTheLastBitInBoxesOfAnySize) {
  for (const auto& gridCase : kCases) {
    SCOPED_TRACE(gridCase.box.width);
    const auto expect = [&](Point position, const GridCase::Expected& expected) {
      EXPECT_EQ(position, expected.position) << position.x << ' ' << position.y;
      const auto units = driverUnits(position, gridCase.box);
      EXPECT_EQ(units, expected.units) << units.x << ' ' << units.y;
    };
    expect(fourPointTarget(1, gridCase.box), gridCase.upperRightOfFour);
    expect(fourPointTarget(2, gridCase.box), gridCase.lowerLeftOfFour);
    expect(gridTarget(2, 3, gridCase.box), gridCase.row2Column3);
    expect(gridTarget(4, 1, gridCase.box), gridCase.row4Column1);
    expect(gridTarget(5, 4, gridCase.box), gridCase.row5Column4);
  }
}

}  // namespace
}  // namespace touchpanel
