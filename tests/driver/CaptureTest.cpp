// A calibration run as the driver lives it.
#include <gtest/gtest.h>

#include "Glass.h"

namespace touchpanel::testing {
namespace {

struct Published {
  std::int32_t x, y, pointId;
  bool operator==(const Published&) const = default;
};

Published read(const driver::TouchDriver& driver) {
  const auto properties = driver.properties();
  const auto* calibration = properties.dictionary("calibration");
  return {calibration->integer("x"), calibration->integer("y"), calibration->integer("pointId")};
}

_CALIB_PARAMS shiftedBy(float dx, float dy) {
  _CALIB_PARAMS params{};
  params.X.A10 = params.Y.A01 = 1;
  params.X.A00 = dx;
  params.Y.A00 = dy;
  return params;
}

Bytes bytesOf(const _CALIB_PARAMS& params) {
  const auto image = imageOf(params);
  return {image.begin(), image.end()};
}

TEST(Capture, PublishesEachFingerUpForTheTargetThatIsExpected) {
  Glass glass;
  glass.play("0: 111,222; 8: -");
  EXPECT_EQ(read(glass.driver), (Published{0, 0, 0})) << "no run, no capture";

  glass.calibrate({{"statCalibrate", true}});
  glass.play("100: 1000,2000; 108: 1010,2020");
  EXPECT_EQ(read(glass.driver), (Published{0, 0, 0})) << "not before the finger leaves";
  glass.play("116: -");
  EXPECT_EQ(read(glass.driver), (Published{1010, 2020, 0}));
  glass.play("200: 3000,4000; 208: -");
  EXPECT_EQ(read(glass.driver), (Published{3000, 4000, 1}));

  glass.calibrate({{"pointId", 7}});
  EXPECT_EQ(read(glass.driver), (Published{3000, 4000, 1})) << "the last touch stays the one of target 1";
  glass.play("300: 5000,6000; 308: -");
  EXPECT_EQ(read(glass.driver), (Published{5000, 6000, 7}));

  glass.calibrate({{"statCalibrate", false}});
  glass.play("400: 1,1; 408: -");
  EXPECT_EQ(read(glass.driver), (Published{5000, 6000, 7}));
  glass.calibrate({{"statCalibrate", true}});
  EXPECT_EQ(read(glass.driver), (Published{0, 0, 0})) << "a new run must not find the old run's touch";
}

TEST(Capture, ATouchAtTheEdgeIsNotTakenForNoTouch) {
  Glass glass;
  glass.calibrate({{"statCalibrate", true}});
  glass.play("0: 0,0; 8: -");
  EXPECT_EQ(read(glass.driver), (Published{1, 1, 0}));
}

TEST(Capture, PublishesThePointBeforeTheReleaseThatBelongsToIt) {
  for (const int mode : {0, 1, 2, 3}) {
    SCOPED_TRACE(mode);
    std::vector<Published> atRelease;
    bool wasDown = false;
    driver::TouchDriver* self = nullptr;
    driver::TouchDriver driver([&](const OutputFrame& frame) {
      if (wasDown && !frame.left) atRelease.push_back(read(*self));
      wasDown = frame.left;
    });
    self = &driver;
    driver.setProperty("configration", Dictionary{{"mode", mode}});
    driver.setProperty("calibration", Dictionary{{"statCalibrate", true}});
    driver.process({std::chrono::milliseconds(0), 1, {{{0, 700, 800}}}});
    driver.process({std::chrono::milliseconds(8), 0, {}});
    EXPECT_EQ(atRelease, (std::vector<Published>{{700, 800, 0}}));
  }
}

TEST(Capture, PointerOutputIsRawPlainAndWholeMeanwhile) {
  Glass glass;
  glass.calibrate(
      {{"calibrateStatus", true}, {"calibParams", bytesOf(shiftedBy(500, -300))}, {"maxX", 20000}});
  glass.configure({{"mode", 1}, {"clickRange", 100}, {"smoothness", 50}});
  glass.calibrate({{"statCalibrate", true}});
  EXPECT_EQ(glass.play("0: 1000,1000; 8: 1050,1000; 5000!; 5008: 30000,1000; 5016: -"),
            "left 1000,1000; drag 1050,1000; drag 30000,1000; up 30000,1000");
  glass.calibrate({{"statCalibrate", false}});
  glass.configure({{"smoothness", 0}});
  EXPECT_EQ(glass.play("6000: 1000,1000; 6008: -"), "move 1500,700; left 1500,700; up 1500,700");
}

TEST(Capture, AFingerThatIsDownWhenARunBeginsIsNoTouchOfIt) {
  Glass glass;
  glass.configure({{"mode", 0}});
  glass.play("0: 9000,9000");
  glass.calibrate({{"statCalibrate", true}});
  glass.play("8: 9000,9000; 16: -");
  EXPECT_EQ(read(glass.driver), (Published{0, 0, 0}));
  glass.play("100: 500,600; 108: -");
  EXPECT_EQ(read(glass.driver), (Published{500, 600, 0}));

  glass.play("200: 0@9000,9000");
  glass.driver.releaseAll();
  glass.play("300: 1@700,800; 308: -");
  EXPECT_EQ(read(glass.driver), (Published{700, 800, 1})) << "nor one whose sensor went away under it";
}

TEST(Capture, TwoFingersAreOneTouchOfTheFirst) {
  Glass glass;
  glass.calibrate({{"statCalibrate", true}});
  glass.play("0: 0@500,600; 8: 0@500,600 1@9000,9000; 16: 1@9000,9000; 24: -");
  EXPECT_EQ(read(glass.driver), (Published{500, 600, 0}));
}

TEST(Calibration, IsEvaluatedInDoubleRoundedAndClampedToTheTouchArea) {
  struct Row {
    const char* what;
    _CALIB_PARAMS params;
    const char* lands;
  };
  auto cubic = shiftedBy(0, 0);
  cubic.X = {1e-9F, 2e-9F, -3e-9F, 4e-9F, 1e-5F, -2e-5F, 3e-5F, 0.25F, 0.5F, 100.0F, {}};
  auto broken = shiftedBy(10, 10);
  broken.X.A30 = std::numeric_limits<float>::quiet_NaN();
  broken.Y.A00 = std::numeric_limits<float>::infinity();
  auto huge = shiftedBy(0, 0);
  huge.X.A30 = std::numeric_limits<float>::max();
  huge.Y.A03 = -std::numeric_limits<float>::max();
  const std::vector<Row> table = {
      {"a shift", shiftedBy(12.6F, -7.6F), "3013,4992"},
      // Worked out by hand at (3000, 5000): 125 + 150 - 135 + 108 + 250 - 300 + 270 + 1250 + 1500 + 100.
      {"each of the ten terms", cubic, "3318,5000"},
      {"beyond the area", shiftedBy(40000, -40000), "30000,50"},
      {"not a number, infinite", broken, "3000,31000"},
      {"overflowing", huge, "30000,50"}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    Glass glass;
    glass.configure({{"mode", 0}, {"smoothness", 0}, {"enableTouchSensitivity", false}});
    ASSERT_EQ(glass.calibrate({{"calibrateStatus", true},
                               {"calibParams", bytesOf(row.params)},
                               {"minX", 20},
                               {"minY", 50},
                               {"maxX", 30000},
                               {"maxY", 31000}}),
              kSuccess);
    EXPECT_EQ(glass.play("0: 3000,5000; 8: -"), std::string("left ") + row.lands + "; up " + row.lands);
    glass.calibrate({{"calibrateStatus", false}});
    EXPECT_EQ(glass.play("5000: 3000,5000; 5008: -"), "left 3000,5000; up 3000,5000");
  }
}

}  // namespace
}  // namespace touchpanel::testing
