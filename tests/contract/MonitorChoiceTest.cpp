#include <gmock/gmock.h>

#include "contract/MonitorChoice.h"
#include "contract/MonitorPlacement.h"

namespace touchpanel {
namespace {

using ::testing::ElementsAre;

/// A screen of 1280x800 at the left, the primary one, and a turned one of 768x1024 at its right, 100 pixels lower.
Desktop twoMonitors() {
  Desktop desktop{.width = 2048, .height = 1124};
  desktop.monitors = {{.connector = "eDP-1",
                       .edid = {"AUO", "0x106c", "0x00000000"},
                       .area = {0, 0, 1280, 800},
                       .isPrimary = true},
                      {.connector = "DP-1",
                       .edid = {"DEL", "U2415", "7MT"},
                       .area = {1280, 100, 768, 1024},
                       .turn = 1,
                       .widthMm = 518,
                       .heightMm = 324}};
  identify(desktop.monitors);
  return desktop;
}

/// minX minY maxX maxY turn
std::vector<std::int32_t> partIn(const Dictionary& message, bool ofTouches) {
  using namespace monitor_key;
  std::vector<std::int32_t> part;
  for (const auto& [pointer, touch] : {std::pair{kMinX, kTouchMinX},
                                       {kMinY, kTouchMinY},
                                       {kMaxX, kTouchMaxX},
                                       {kMaxY, kTouchMaxY},
                                       {kTurn, kTouchTurn}})
    part.push_back(message.integer(ofTouches ? touch : pointer));
  return part;
}

TEST(MonitorChoice, PlacesATouchscreenOnItsMonitorAndOnThePrimaryOneWhileThatIsAway) {
  auto desktop = twoMonitors();
  const auto right = placementMessage(desktop, "DEL U2415 7MT");
  // An edge between two pixels stays one: 1280 of 2048 is 20480 of 32768.
  EXPECT_THAT(partIn(right, false), ElementsAre(20480, 2915, 32767, 32767, 1));
  EXPECT_EQ(partIn(right, true), partIn(right, false));
  EXPECT_EQ(right.integer(monitor_key::kWidthMm), 518);
  const auto left = ElementsAre(0, 0, 20479, 23321, 0);
  EXPECT_THAT(partIn(placementMessage(desktop, ""), false), left);
  EXPECT_THAT(partIn(placementMessage(desktop, "SAM S24 1"), false), left);

  desktop.placesTouches = true;  // only what the compositor leaves alone is placed
  EXPECT_THAT(partIn(placementMessage(desktop, "DP-1"), true), ElementsAre(0, 0, 32767, 32767, 0));
  EXPECT_EQ(partIn(placementMessage(desktop, "DP-1"), false), partIn(right, false));

  desktop.monitors[1].area.x = 4000;  // a server that is in the middle of a change
  EXPECT_THAT(partIn(placementMessage(desktop, "DP-1"), false), ElementsAre(0, 0, 32767, 32767, 0));
  desktop.monitors.clear();
  EXPECT_THAT(partIn(placementMessage(desktop, "DP-1"), false), ElementsAre(0, 0, 32767, 32767, 0));
}

TEST(MonitorChoice, KnowsAMonitorAgainWhenItsLikeIsPluggedInBesideIt) {
  auto desktop = twoMonitors();
  const auto alone = desktop.monitors[1].identity;
  desktop.monitors.push_back(desktop.monitors[1]);
  desktop.monitors.back().connector = "DP-2";
  identify(desktop.monitors);
  EXPECT_EQ(monitorFor(desktop, alone)->connector, "DP-1");
  const auto second = desktop.monitors[2].identity;
  EXPECT_EQ(monitorFor(desktop, second)->connector, "DP-2");
  desktop.monitors.erase(desktop.monitors.begin() + 1);
  identify(desktop.monitors);
  EXPECT_EQ(monitorFor(desktop, second)->connector, "DP-2") << "its like is away";
}

}  // namespace
}  // namespace touchpanel
