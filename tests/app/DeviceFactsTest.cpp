#include <gmock/gmock.h>

#include "ControllerRig.h"

namespace touchpanel::testing {
namespace {

using enum CalibrationEvent;

struct DeviceFactsTest : ::testing::Test, ListedTouchscreens {
  EarlierCalibrations earlier{{historyFiles, wallClock, "/state"}, diagnostics};
};

TEST_F(DeviceFactsTest, SayWhatTheSelectedTouchscreenIsAndHowItWorksNow) {
  auto plain = list(kProductInfrared0080, "");
  auto named = list(kProductOptical, "<b>OPT</b>");
  EXPECT_EQ(facts.shown.kind, DeviceKind::Infrared);
  EXPECT_EQ(facts.shown.barCode, "");
  EXPECT_FALSE(facts.shown.inForce);
  EXPECT_EQ(facts.shown.driver, kErrorNoDevice) << "a registry that answers, and not for this one";

  registry.objects.at(handleOf(named)).properties =
      Dictionary{{property::kConfigration, Dictionary{{configration_key::kMode, kMultiTouch},
                                                      {configration_key::kEnableTouch, false}}}};
  controller.shouldSelectRow(1);
  EXPECT_EQ(facts.shown, (DeviceFacts{.isSelected = true,
                                      .kind = DeviceKind::Optical,
                                      .barCode = "<b>OPT</b>",
                                      .firmware = "---",
                                      .isCalibrated = true,
                                      .inForce = TouchSettings{.mode = kMultiTouch, .enableTouch = false}}));
  named->set(entry_key::kCalibrateStatus, entry_key::kNo);
  controller.EnableTouch();
  EXPECT_FALSE(facts.shown.isCalibrated) << "shown anew after a command";
}

TEST_F(DeviceFactsTest, KnowTheCalibrationThatIsHeldByTheLastTimeItWasAccepted) {
  const auto entry = list(kProductInfrared0080, "A1");
  auto held = contextOf(*entry);
  held.DeviceConfig.CalibrateStatus = 1;
  storeContext(*entry, held);
  auto other = held;
  other.CalibParams.X.A00 = 1;
  const CalibrationFit fit{.targets = 25, .pixels = {1, 2}, .screen = {800, 480}};
  const auto keep = [&](CalibrationEvent event, const _DEVICT_CONTEXT& before, const _DEVICT_CONTEXT& after) {
    wallClock.time += std::chrono::hours(1);
    EXPECT_EQ(earlier.keep(*entry, before, {.event = event, .context = after, .fit = fit}), kSuccess);
    controller.shouldSelectRow(0);
    return wallClock.time;
  };
  keep(Accepted, other, held);
  const auto second = keep(Accepted, held, held);
  keep(Accepted, held, other);
  EXPECT_EQ(facts.shown.calibration, (CalibrationFacts{second, fit}));
  EXPECT_EQ(facts.shown.earlierCalibrations, 4U);

  EXPECT_FALSE(facts.shown.canUndoReset);
  keep(Reset, held, {});
  EXPECT_FALSE(facts.shown.canUndoReset) << "calibrated since then";
  storeContext(*entry, {});
  controller.reloadTableViewData();
  EXPECT_TRUE(facts.shown.canUndoReset);
  keep(Restored, {}, other);
  EXPECT_FALSE(facts.shown.canUndoReset);
}

}  // namespace
}  // namespace touchpanel::testing
