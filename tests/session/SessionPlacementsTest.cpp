#include <gmock/gmock.h>

#include "contract/MonitorPlacement.h"
#include "contract/TouchSettings.h"
#include "driver/PublishedInstances.h"
#include "driver/TouchDriver.h"
#include "session/SessionPlacements.h"
#include "support/FakeMonitors.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Touchscreen final : driver::PublishedInstance {
  explicit Touchscreen(std::uint32_t at) : location(at) {}
  std::uint32_t locationId() const override { return location; }
  Dictionary properties() const override { return driver.properties(); }
  Status setProperty(std::string_view name, const Value& value) override {
    ++writes;
    return refuses ? kErrorNotPermitted : driver.setProperty(name, value);
  }
  void setDoubleClick(std::chrono::milliseconds /*time*/, std::int32_t /*area*/) override {}

  /// As another program writes it.
  void is(const Dictionary& monitor) { ASSERT_EQ(driver.setProperty(property::kMonitor, monitor), kSuccess); }
  std::int32_t now(const char* key) const {
    return driver.properties().dictionary(property::kMonitor)->integer(key);
  }
  std::vector<std::int32_t> columns() const { return {now("minX"), now("maxX")}; }

  std::uint32_t location;
  driver::TouchDriver driver{[](const OutputFrame&) {}};
  bool refuses = false;
  int writes = 0;
};

struct RecordingTouchOutputs final : TouchOutputs {
  void assign(const std::string& name, const Monitor& monitor) override {
    assigned.push_back(name + " on " + monitor.connector);
  }
  std::vector<std::string> assigned;
};

/// Two monitors side by side, the left one primary, and two touchscreens.
struct ASession : ::testing::Test {
  ASession() {
    registry.publish(here);
    monitors.become(both());
  }
  static Desktop both() {
    return {{{.connector = "eDP-1", .area = {0, 0, 1000, 1000}, .isPrimary = true},
             {.connector = "DP-1", .area = {1000, 0, 1000, 1000}, .turn = 1}},
            2000,
            1000};
  }

  FakeMonitors monitors;
  RecordingTouchOutputs outputs;
  Touchscreen here{0x14100000}, there{0x14200000};
  driver::HidSystem hidSystem;
  driver::PublishedInstances registry{hidSystem};
  SessionPlacements session{registry, monitors, outputs};
};

TEST_F(ASession, KeepsEachTouchscreenOnItsMonitorThroughEveryChange) {
  here.is({{monitor_key::kIdentity, "DP-1"}});
  session.renew();
  EXPECT_THAT(here.columns(), ElementsAre(16384, 32767));
  EXPECT_EQ(here.now(monitor_key::kTurn), 1);
  registry.publish(there);
  session.follow();
  EXPECT_THAT(there.columns(), ElementsAre(0, 16383)) << "the primary one";
  session.renew();
  EXPECT_EQ(here.writes + there.writes, 2) << "what is right is not written again";

  auto alone = both();
  alone.monitors.pop_back();
  alone.width = 1000;
  monitors.become(alone);
  session.renew();
  EXPECT_THAT(here.columns(), ElementsAre(0, 32767)) << "its monitor is away";
  EXPECT_EQ(here.now(monitor_key::kTurn), 0);
  monitors.become(both());
  session.renew();
  EXPECT_THAT(here.columns(), ElementsAre(16384, 32767)) << "and back";
  there.is({{monitor_key::kIdentity, "DP-1"}});
  session.follow();
  EXPECT_THAT(there.columns(), ElementsAre(16384, 32767)) << "chosen in the panel";
}

TEST_F(ASession, NeitherAnswersAnotherSessionNorInsistsWhereItIsRefused) {
  session.renew();
  here.is({{"minX", 5}, {"maxX", 99}});
  session.follow();
  EXPECT_THAT(here.columns(), ElementsAre(5, 99)) << "said once, and overruled";
  here.refuses = true;
  session.renew();
  const int asked = here.writes;
  session.follow();
  EXPECT_EQ(here.writes, asked);
  here.refuses = false;
  session.renew();
  EXPECT_THAT(here.columns(), ElementsAre(0, 16383)) << "the session is active again";
}

TEST_F(ASession, LeavesToTheDesktopWhatTheDesktopPlaces) {
  auto desktop = both();
  desktop.placesTouches = true;
  monitors.become(desktop);
  here.is({{monitor_key::kIdentity, "DP-1"}});
  session.renew();
  EXPECT_THAT(here.columns(), ElementsAre(16384, 32767)) << "the pointer";
  EXPECT_EQ(here.now(monitor_key::kTouchMinX), 0);
  EXPECT_EQ(here.now(monitor_key::kTouchTurn), 0);
  EXPECT_THAT(outputs.assigned, IsEmpty()) << "there is a touch device in mode 3 only";
  here.driver.setProperty(property::kConfigration, Dictionary{{configration_key::kMode, kMultiTouch}});
  session.follow();
  EXPECT_THAT(outputs.assigned, ElementsAre("Touchscreen 14100000 on DP-1"));
  monitors.become({});
  session.renew();
  EXPECT_THAT(here.columns(), ElementsAre(16384, 32767)) << "a server that says nothing changes nothing";
}

}  // namespace
}  // namespace touchpanel::testing
