#include <gmock/gmock.h>

#include "ControllerRig.h"
#include "contract/MonitorPlacement.h"
#include "protocol/Exchange.h"
#include "support/RecordingCanvas.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using Write = FakeRegistry::Write;

class StartingACalibration : public ::testing::Test, public ListedTouchscreens {
 protected:
  /// Touches all four targets of the run that is on the screen.
  void touchFourTargets(const DeviceEntry& entry) {
    const std::int32_t raw[][2] = {{3000, 3000}, {30000, 3100}, {2900, 29000}, {30100, 29500}};
    for (std::int32_t target = 0; target < 4; ++target) {
      view().drawRect(canvas);
      registry.objects.at(handleOf(entry)).properties =
          Dictionary{{property::kCalibration, Dictionary{{calibration_key::kX, raw[target][0]},
                                                         {calibration_key::kY, raw[target][1]},
                                                         {calibration_key::kPointId, target}}}};
      view().mouseUp({1, 1});
    }
    view().drawRect(canvas);
  }
  View& view() { return *screen.windows.back()->view; }

  RecordingCanvas canvas;
};

TEST_F(StartingACalibration, CoversTheScreenAndCapturesTheSelectedDevicesTouches) {
  list(0x0080, "other");
  auto entry = list(0x0C20, "chosen");
  controller.shouldSelectRow(1);
  screen.frame = {0, 0, 1280, 800};
  for (const bool region : {false, true}) {
    registry.writes.clear();
    region ? controller.RegionCalibration() : controller.Calibration();

    ASSERT_FALSE(screen.windows.empty());
    const auto& window = *screen.windows.back();
    EXPECT_EQ(window.contentRect, screen.frame);
    EXPECT_TRUE(window.behaviour->canBecomeKeyWindow() && window.behaviour->canBecomeMainWindow());
    EXPECT_TRUE(window.isShielding && window.isKeyAndFront && !window.isClosed);
    ASSERT_NE(window.view, nullptr);
    EXPECT_EQ(window.firstResponder, window.view);
    EXPECT_EQ(cursor.isHidden, !region) << "a region is dragged out with the mouse";
    EXPECT_THAT(registry.writes, ElementsAre(Write{handleOf(entry), property::kCalibration,
                                                   Dictionary{{calibration_key::kStatCalibrate, true}}}));
    EXPECT_EQ(status(),
              (StatusMessage{region ? "Region calibration of %1 started." : "Calibration of %1 started.",
                             "chosen"}));
    view().keyDown(kKeyEscape);
    cursor.isHidden = false;
  }
}

TEST_F(StartingACalibration, IsOnTheMonitorOfItsTouchscreenWhichTheDriverIsToldFirst) {
  const auto entry = list(0x0080, "panel");
  registry.objects.at(handleOf(entry)).properties =
      Dictionary{{property::kMonitor, Dictionary{{monitor_key::kIdentity, "DP-1"},
                                                 {monitor_key::kMaxX, 32767},
                                                 {monitor_key::kMaxY, 32767}}}};
  monitors.become({{{.connector = "eDP-1", .area = {0, 0, 1000, 1000}, .isPrimary = true},
                    {.connector = "DP-1", .area = {1000, 0, 1000, 1000}, .turn = 2}},
                   2000,
                   1000});
  controller.Calibration();
  EXPECT_EQ(screen.main, "DP-1");
  ASSERT_EQ(registry.writes.size(), 2U);
  EXPECT_EQ(registry.writes[0].name, property::kMonitor);
  const auto& told = *registry.writes[0].value.get<Dictionary>();
  EXPECT_EQ(told.integer(monitor_key::kMinX), 16384);
  EXPECT_EQ(told.integer(monitor_key::kTurn), 2);
  EXPECT_FALSE(told.contains(monitor_key::kMaxX)) << "what is right already is not said";
}

TEST_F(StartingACalibration, IsRefusedWhileOneIsOnTheScreenAndKeepsItUntilTheNextOfItsKind) {
  list(0x0080, "panel");
  controller.RegionCalibration();
  controller.Calibration();
  controller.RegionCalibration();
  ASSERT_EQ(screen.windows.size(), 1U);
  view().keyDown(kKeyEscape);
  EXPECT_TRUE(screen.windows[0]->isClosed);
  controller.Calibration();
  controller.RegionCalibration();
  ASSERT_EQ(screen.windows.size(), 2U);
  view().keyDown(kKeyEscape);
  EXPECT_FALSE(screen.windows[0]->isDestroyed) << "the run may still be on the call stack";
  controller.RegionCalibration();
  EXPECT_TRUE(screen.windows[0]->isDestroyed);
  EXPECT_FALSE(screen.windows[1]->isDestroyed);
  EXPECT_EQ(runLoop.timerCount(), 1U);
}

TEST_F(StartingACalibration, AsksFirstWhereOkWouldOverwriteAConfigurationThatWasNeverRead) {
  auto entry = list(0x0080, "panel");
  entry->set(entry_key::kUnreadBlocks, static_cast<std::int32_t>(ContentSet{Content::DeviceConfig}.bits()));
  controller.Calibration();
  EXPECT_TRUE(screen.windows.empty());
  EXPECT_EQ(alerts.questions.size(), 1U);
  alerts.answer = true;
  controller.Calibration();
  EXPECT_EQ(screen.windows.size(), 1U);
  view().keyDown(kKeyEscape);
  entry->set(entry_key::kUnreadBlocks, static_cast<std::int32_t>(ContentSet{Content::CalibX}.bits()));
  controller.Calibration();
  EXPECT_EQ(alerts.questions.size(), 2U) << "a calibration is there to be overwritten";
}

TEST_F(StartingACalibration, SaysHowItEnded) {
  constexpr std::string_view kLeft = "The calibration of %1 ended; nothing was written to the touchscreen.";
  auto entry = list(0x0001, "panel");
  entry->set(entry_key::kCalibrateStatus, entry_key::kNo);
  controller.UpdateSettings();
  EXPECT_FALSE(interface.btnReset.enabled);
  controller.Calibration();
  touchFourTargets(entry);
  view().keyDown(kKeyReturn);
  EXPECT_EQ(interface.deviceTableView.reloads, 1);
  EXPECT_TRUE(interface.btnReset.enabled);
  EXPECT_TRUE(files.files.contains("device.plist"));
  EXPECT_EQ(status(), (StatusMessage{"The new calibration of %1 is written and in use.", "panel"}));
  ASSERT_TRUE(facts.shown.calibration && facts.shown.calibration->fit) << "kept, and shown";
  EXPECT_EQ(facts.shown.calibration->accepted, wallClock.time);
  EXPECT_EQ(facts.shown.calibration->fit->touches.size(), 4U);

  controller.Calibration();
  touchFourTargets(entry);
  view().keyDown(kKeyEscape);
  EXPECT_EQ(interface.deviceTableView.reloads, 1);
  EXPECT_EQ(status(), (StatusMessage{kLeft, "panel"}));

  controller.Calibration();
  registry.remove(handleOf(entry));
  view().drawRect(canvas);
  EXPECT_TRUE(screen.windows.back()->isClosed);
  EXPECT_EQ(status().text, "%1 cannot be calibrated now: %2.");
}

TEST_F(StartingACalibration, SaysWhatARegionLeavesInForce) {
  auto entry = list(0x0001, "panel");
  for (const bool touched : {false, true}) {
    controller.RegionCalibration();
    view().mouseDown({100, 900});
    view().mouseDragged({1100, 100});
    view().mouseUp({1100, 100});
    if (touched) touchFourTargets(entry);
    runLoop.advance(std::chrono::seconds(31));
    ASSERT_TRUE(screen.windows.back()->isClosed);
    EXPECT_EQ(status().text,
              touched ? "The new calibration of %1 stays in use; nothing was written to the touchscreen."
                      : "The calibration of %1 ended; nothing was written to the touchscreen.");
  }
}

}  // namespace
}  // namespace touchpanel::testing
