#include <cmath>

#include <gmock/gmock.h>

#include "contract/DriverProperties.h"
#include "demo/measure/TouchError.h"

namespace touchpanel::demo {
namespace {

constexpr ScreenSize kScreen{1280, 1024};

Value parameters(float offsetX, float scaleX, float scaleY) {
  _CALIB_PARAMS params{};
  params.X.A00 = offsetX;
  params.X.A10 = scaleX;
  params.Y.A01 = scaleY;
  const auto image = imageOf(params);
  return Bytes(image.begin(), image.end());
}

TEST(TouchError, IsTheDistanceOnTheScreenHoweverManyPixelsAnAxisHas) {
  struct Case {
    firmware::ScreenFraction touched;
    driver::Point output;
    ScreenSize screen;
    double pixels;
  };
  const Case cases[] = {
      {{0, 0}, {0, 0}, kScreen, 0},
      {{1, 1}, {kLogicalMaximum, kLogicalMaximum}, kScreen, 0},
      {{0, 0}, {kLogicalMaximum, 0}, kScreen, 1280},
      {{0, 1}, {0, 0}, kScreen, 1024},
      {{0, 0}, {kLogicalMaximum, kLogicalMaximum}, {3000, 4000}, 5000},
  };
  for (const auto& c : cases) EXPECT_NEAR(errorInPixels(c.touched, c.output, c.screen), c.pixels, 1e-9);
}

TEST(TouchError, IsSummedUpAsMeanAndLargest) {
  EXPECT_EQ(summaryOf({}), ErrorSummary{});
  EXPECT_EQ(summaryOf(std::vector<double>{3, 0, 6}), (ErrorSummary{3, 6}));
}

TEST(TouchReading, ComparesTheRawPointWithWhatTheDriversCalibrationMakesOfIt) {
  driver::TouchDriver driver([](const OutputFrame&) {});
  const firmware::ScreenFraction middle{0.5, 0.5};
  const firmware::RawPoint raw{8192, 8192};

  const auto before = readingOf(middle, raw, driver, kScreen);
  EXPECT_EQ(before.calibrated, (driver::Point{8192, 8192}));
  EXPECT_DOUBLE_EQ(before.errorBefore, before.errorAfter);
  EXPECT_NEAR(before.errorBefore, std::hypot(320, 256), 0.1);

  ASSERT_EQ(driver.setProperty(property::kCalibration,
                               Dictionary{{calibration_key::kCalibrateStatus, true},
                                          {calibration_key::kCalibParams, parameters(100, 2, 2)},
                                          {calibration_key::kStatCalibrate, true}}),
            kSuccess);
  const auto after = readingOf(middle, raw, driver, kScreen);
  EXPECT_EQ(after.calibrated, (driver::Point{16484, 16384}));
  EXPECT_DOUBLE_EQ(after.errorBefore, before.errorBefore);
  EXPECT_NEAR(after.errorAfter, 100.0 / kLogicalMaximum * 1280, 0.1);
  EXPECT_TRUE(driver.capturing());
}

TEST(TestPoints, AreNoTargetsOfAnyGrid) {
  const auto points = testPoints();
  EXPECT_GE(points.size(), 25U);
  for (const auto& point : points)
    for (int row = 0; row < 5; ++row)
      for (int column = 0; column < 5; ++column)
        EXPECT_GT(std::hypot(point.x - (0.05 + column * 0.225), point.y - (0.05 + row * 0.225)), 0.005);
}

}  // namespace
}  // namespace touchpanel::demo
