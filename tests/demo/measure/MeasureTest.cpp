#include <cmath>

#include <gtest/gtest.h>

#include "contract/DriverProperties.h"
#include "demo/measure/AccuracyProbe.h"

namespace touchpanel::demo {
namespace {

TEST(AccuracyProbe, FindsTheDistortionOfTheSensorThroughEveryTouchModeOfOnePointer) {
  firmware::Distortion distortion;
  distortion.offsetX = 0.01;
  simulated::SimulatedTouchscreen touchscreen(
      {"Shifted", firmware::exampleDevice(DeviceKind::Optical), distortion, 0x14100000});
  FingerClock clock;
  const auto probe = [&](Dictionary settings) {
    EXPECT_EQ(touchscreen.driver().setProperty(property::kConfigration, std::move(settings)), kSuccess);
    return probeAccuracy(touchscreen, {1000, 1000}, clock);
  };
  touchscreen.driver().setDoubleClick(std::chrono::milliseconds(5000), 1000);
  for (const std::int32_t mode : {0, 1, 2}) {
    const auto summary = probe({{configration_key::kMode, mode}});
    ASSERT_TRUE(summary);
    EXPECT_NEAR(summary->mean, 10, 0.1) << "mode " << mode;
    EXPECT_NEAR(summary->largest, 10, 0.1) << "mode " << mode;
  }
  EXPECT_EQ(probe({{configration_key::kEnableTouch, false}}), std::nullopt) << "no hit, but no pointer";
}

TEST(TouchReading, ComparesTheRawPointWithWhatTheDriversCalibrationMakesOfIt) {
  driver::TouchDriver driver([](const OutputFrame&) {});
  const auto reading = [&] { return readingOf({0.5, 0.5}, {8192, 8192}, driver, {1280, 1024}); };
  EXPECT_EQ(reading().calibrated, (driver::Point{8192, 8192}));
  EXPECT_NEAR(reading().errorAfter, std::hypot(320, 256), 0.1);

  _CALIB_PARAMS params{};
  params.X.A00 = 100;
  params.X.A10 = params.Y.A01 = 2;
  const auto image = imageOf(params);
  ASSERT_EQ(driver.setProperty(property::kCalibration, Dictionary{{calibration_key::kCalibrateStatus, true},
                                                                  {calibration_key::kCalibParams,
                                                                   Bytes(image.begin(), image.end())}}),
            kSuccess);
  EXPECT_EQ(reading().calibrated, (driver::Point{16484, 16384}));
  EXPECT_NEAR(reading().errorBefore, std::hypot(320, 256), 0.1);
  EXPECT_NEAR(reading().errorAfter, 100.0 / kLogicalMaximum * 1280, 0.1);
}

}  // namespace
}  // namespace touchpanel::demo
