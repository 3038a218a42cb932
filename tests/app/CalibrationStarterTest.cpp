#include <gmock/gmock.h>

#include "PanelRig.h"
#include "app/CalibrationStarter.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Write = FakeRegistry::Write;

struct NullCanvas final : Canvas {
  void fillRect(const Rect& /*rect*/, const Color& /*color*/) override {}
  void fillOval(const Rect& /*bounds*/, const Color& /*color*/) override {}
  void strokeRect(const Rect& /*rect*/, const Color& /*color*/) override {}
  void drawText(const StyledText& /*text*/, const Point& /*origin*/) override {}
};

class StartingACalibration : public ::testing::Test, public PanelRig, public TableReloader {
 protected:
  void reloadTableViewData() override { ++reloads; }

  /// Touches all four targets of the run that is on the screen.
  void touchFourTargets(const DeviceEntry& entry) {
    const Point raw[] = {{3000, 3000}, {30000, 3100}, {2900, 29000}, {30100, 29500}};
    for (std::int32_t target = 0; target < 4; ++target) {
      view().drawRect(canvas);
      registry.objects.at(handleOf(entry)).properties = Dictionary{
          {property::kCalibration, Dictionary{{calibration_key::kX, static_cast<std::int32_t>(raw[target].x)},
                                              {calibration_key::kY, static_cast<std::int32_t>(raw[target].y)},
                                              {calibration_key::kPointId, target}}}};
      view().mouseUp({1, 1});
    }
    view().drawRect(canvas);
  }
  View& view() { return *screen.windows.back()->view; }

  NullCanvas canvas;
  int reloads = 0;
  CalibrationStarter starter{ports, state, *this};
};

TEST_F(StartingACalibration, CoversTheScreenAndCapturesTheSelectedDevicesTouches) {
  for (const bool region : {false, true}) {
    list(0x0080, "other");
    auto entry = list(0x0C20, "chosen");
    state.currentDict = entry;
    registry.writes.clear();
    screen.frame = {0, 0, 1280, 800};

    region ? starter.startRegion() : starter.startPoints();

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
    EXPECT_EQ(statusLine.messages.back(),
              (StatusMessage{region ? StatusText::RegionCalibrationStarted : StatusText::CalibrationStarted,
                             "chosen"}));
    view().keyDown(kKeyEscape);
    cursor.isHidden = false;
  }
}

TEST_F(StartingACalibration, IsRefusedWhileOneIsOnTheScreen) {
  list(0x0080, "panel");
  starter.startRegion();
  starter.startPoints();
  starter.startRegion();
  EXPECT_EQ(screen.windows.size(), 1U);
  view().keyDown(kKeyEscape);
  starter.startPoints();
  EXPECT_EQ(screen.windows.size(), 2U);
  starter.startRegion();
  EXPECT_EQ(screen.windows.size(), 2U);
}

TEST_F(StartingACalibration, KeepsViewAndWindowUntilTheNextRunOfThatKind) {
  list(0x0080, "panel");
  starter.startPoints();
  view().keyDown(kKeyEscape);
  EXPECT_TRUE(screen.windows[0]->isClosed);
  EXPECT_FALSE(screen.windows[0]->isDestroyed) << "the run is still on the call stack";
  starter.startRegion();
  view().keyDown(kKeyEscape);
  EXPECT_FALSE(screen.windows[0]->isDestroyed);
  starter.startPoints();
  EXPECT_TRUE(screen.windows[0]->isDestroyed);
  EXPECT_FALSE(screen.windows[1]->isDestroyed);
  EXPECT_EQ(runLoop.timerCount(), 1U);
}

TEST_F(StartingACalibration, TellsHowItEnded) {
  auto entry = list(0x0001, "panel");
  entry->set(entry_key::kCalibrateStatus, entry_key::kNo);
  starter.startPoints();
  touchFourTargets(entry);
  view().keyDown(kKeyReturn);
  EXPECT_EQ(reloads, 1);
  EXPECT_TRUE(files.files.contains("device.plist"));
  EXPECT_EQ(statusLine.messages.back(), (StatusMessage{StatusText::CalibrationSaved, "panel"}));

  starter.startPoints();
  touchFourTargets(entry);
  view().keyDown(kKeyEscape);
  EXPECT_EQ(reloads, 1);
  EXPECT_EQ(statusLine.messages.back(), (StatusMessage{StatusText::CalibrationLeft, "panel"}));

  starter.startPoints();
  registry.remove(handleOf(entry));
  view().drawRect(canvas);
  EXPECT_TRUE(screen.windows.back()->isClosed);
  EXPECT_EQ(statusLine.messages.back(), (StatusMessage{StatusText::CalibrationLeft, "panel"}));
}

TEST_F(StartingACalibration, OutlivesItsEntryInTheList) {
  auto entry = list(0x0080, "leaving");
  auto staying = list(0x0080, "staying");
  starter.startRegion();
  registry.remove(handleOf(entry));
  state.deviceListArray.erase(state.deviceListArray.begin());
  state.currentDict = staying;
  entry.reset();
  view().mouseUp({5, 5});
  view().drawRect(canvas);
  runLoop.advance(std::chrono::seconds(2));
  view().keyDown(kKeyEscape);
  EXPECT_TRUE(screen.windows.back()->isClosed);
  EXPECT_THAT(registry.writesTo(handleOf(staying)), IsEmpty());
}

TEST_F(StartingACalibration, NeedsASelection) {
  starter.startPoints();
  starter.startRegion();
  EXPECT_THAT(screen.windows, IsEmpty());
  EXPECT_THAT(registry.writes, IsEmpty());
  EXPECT_THAT(statusLine.messages, ElementsAre(StatusMessage{StatusText::NoDeviceSelected},
                                               StatusMessage{StatusText::NoDeviceSelected}));
}

}  // namespace
}  // namespace touchpanel::testing
