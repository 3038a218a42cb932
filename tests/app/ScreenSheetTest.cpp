#include <gmock/gmock.h>

#include "ControllerRig.h"
#include "contract/MonitorPlacement.h"
#include "support/RecordingCanvas.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Two screens and two touchscreens, which both lie on the first one; the second touchscreen is selected.
struct TheScreenSheet : ::testing::Test, ListedTouchscreens {
  TheScreenSheet() {
    monitors.become({{{.connector = "eDP-1", .area = {0, 0, 1000, 1000}, .isPrimary = true},
                      {.connector = "DP-1", .area = {1000, 0, 1000, 1000}}},
                     2000,
                     1000});
    for (const char* name : {"first", "second"}) entries.push_back(list(0x0080, name));
    for (const auto& entry : entries) publish(entry, "eDP-1");
    controller.shouldSelectRow(1);
    registry.writes.clear();
  }
  void publish(const DeviceEntry& entry, const char* identity, std::int32_t x = 0, std::int32_t y = 0) {
    registry.objects.at(handleOf(entry)).properties =
        Dictionary{{property::kMonitor, Dictionary{{monitor_key::kIdentity, identity}}},
                   {property::kCalibration, Dictionary{{calibration_key::kX, x}, {calibration_key::kY, y}}}};
  }
  /// What was written since the last call: "touchscreen: identity of its screen", "touchscreen: capture".
  std::vector<std::string> written() {
    std::vector<std::string> texts;
    for (const auto& write : std::exchange(registry.writes, {})) {
      const std::string name = write.object == handleOf(entries[0]) ? "first: " : "second: ";
      const auto& value = *write.value.get<Dictionary>();
      if (write.name == property::kMonitor)
        texts.push_back(name + value.text(monitor_key::kIdentity) + ' ' +
                        std::to_string(value.integer(monitor_key::kMinX)));
      else
        texts.push_back(name + (value.boolean(calibration_key::kStatCalibrate) ? "capture" : "release"));
    }
    return texts;
  }
  std::vector<FakeWindowRecord*> windows() {
    std::vector<FakeWindowRecord*> open;
    for (const auto& window : screen.windows)
      if (!window->isClosed) open.push_back(window.get());
    return open;
  }

  std::vector<DeviceEntry> entries;
};

TEST_F(TheScreenSheet, PutsATouchscreenOnTheScreenOnWhichItIsTouched) {
  controller.Screens();
  ASSERT_EQ(sheets.open, &interface.ScreenWindow);
  ASSERT_EQ(windows().size(), 2U) << "a number on each screen";
  EXPECT_LT(windows()[0]->contentRect.width, screen.frame.width);
  windows()[0]->view->mouseUp({1, 1});
  EXPECT_EQ(screens.shown.touchscreen, 1U);
  EXPECT_EQ(screens.shown.screen, 0U);
  controller.ScreenMark(1);
  controller.ScreenTouch();
  EXPECT_THAT(written(), ElementsAre("first: capture", "second: capture"));
  ASSERT_EQ(windows().size(), 2U);
  for (const auto* window : windows())
    EXPECT_EQ(window->contentRect, screen.frame) << "wherever the touch lands";
  EXPECT_EQ(windows()[0]->firstResponder, nullptr);
  EXPECT_EQ(windows()[1]->firstResponder, windows()[1]->view);
  RecordingCanvas canvas;
  windows()[1]->view->drawRect(canvas);
  windows()[0]->view->mouseUp({1, 1});
  EXPECT_THAT(written(), IsEmpty()) << "a mouse";
  publish(entries[0], "eDP-1", 500, 600);
  auto* touched = windows()[0]->view;
  touched->mouseUp({1, 1});
  EXPECT_THAT(written(), ElementsAre("first: release", "second: release", "first: DP-1 16384"));
  EXPECT_EQ(screens.shown.outcome, (StatusMessage{"%1 is on the chosen screen.", "first"}));
  EXPECT_LT(windows()[0]->contentRect.width, screen.frame.width);
  publish(entries[0], "DP-1");
  controller.ScreenOk();
  EXPECT_THAT(written(), IsEmpty());
  EXPECT_THAT(windows(), IsEmpty());
  EXPECT_EQ(sheets.open, nullptr);
}

TEST_F(TheScreenSheet, TakesEveryChoiceBackAndSaysWhyOneIsRefused) {
  controller.Screens();
  controller.ScreenMark(1);
  controller.ScreenAssign();
  EXPECT_THAT(written(), ElementsAre("second: DP-1 16384"));
  publish(entries[1], "DP-1");
  controller.ScreenTouch();
  written();
  windows()[1]->view->keyDown(kKeyEscape);
  EXPECT_THAT(written(), ElementsAre("first: release", "second: release"));
  controller.ScreenTouch();
  written();
  auto alone = monitors.now;
  alone.monitors.pop_back();
  monitors.become(alone);
  EXPECT_EQ(screens.shown.screen, 0U) << "the marked one was unplugged";
  EXPECT_EQ(windows().size(), 1U);
  written();
  controller.ScreenCancel();
  EXPECT_THAT(written(), ElementsAre("second: eDP-1 0"));
  EXPECT_THAT(windows(), IsEmpty());

  controller.Screens();
  registry.remove(handleOf(entries[1]));
  controller.ScreenAssign();
  EXPECT_EQ(screens.shown.outcome.text, "The screen of %1 is not changed: %2.");
  EXPECT_FALSE(screens.shown.outcome.reason.empty());
  controller.ScreenCancel();
  monitors.become({});
  controller.Screens();
  EXPECT_EQ(status().text, "Nothing is known of the screens of this desktop.");
  EXPECT_EQ(sheets.open, nullptr);
}

}  // namespace
}  // namespace touchpanel::testing
