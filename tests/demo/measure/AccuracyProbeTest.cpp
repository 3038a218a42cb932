#include <gmock/gmock.h>

#include "contract/DriverProperties.h"
#include "demo/measure/AccuracyProbe.h"
#include "providers/simulated/SimulatedTouchscreen.h"

namespace touchpanel::demo {
namespace {

constexpr ScreenSize kScreen{1000, 1000};

simulated::TouchscreenModel shiftedToTheRight() {
  firmware::Distortion distortion;
  distortion.offsetX = 0.01;
  return {"Shifted", firmware::exampleDevice(DeviceKind::Optical), distortion, 0x14100000};
}

TEST(AccuracyProbe, FindsTheDistortionOfTheSensorThroughEveryTouchModeOfOnePointer) {
  for (const std::int32_t mode : {0, 1, 2}) {
    simulated::SimulatedTouchscreen touchscreen(shiftedToTheRight());
    FingerClock clock;
    touchscreen.driver().setDoubleClick(std::chrono::milliseconds(5000), 1000);
    ASSERT_EQ(touchscreen.driver().setProperty(property::kConfigration,
                                               Dictionary{{configration_key::kMode, mode}}),
              kSuccess);
    const auto summary = probeAccuracy(touchscreen, kScreen, clock);
    ASSERT_TRUE(summary);
    EXPECT_NEAR(summary->mean, 10, 0.1) << "mode " << mode;
    EXPECT_NEAR(summary->largest, 10, 0.1) << "mode " << mode;
  }
}

TEST(AccuracyProbe, TellsATouchscreenThatMovesNothingFromOneThatHits) {
  simulated::SimulatedTouchscreen touchscreen(shiftedToTheRight());
  FingerClock clock;
  ASSERT_EQ(touchscreen.driver().setProperty(property::kConfigration,
                                             Dictionary{{configration_key::kEnableTouch, false}}),
            kSuccess);
  EXPECT_EQ(probeAccuracy(touchscreen, kScreen, clock), std::nullopt);
}

}  // namespace
}  // namespace touchpanel::demo
