#include <gmock/gmock.h>

#include "PanelRun.h"
#include "calibration/CubicMap.h"
#include "demo/measure/AccuracyProbe.h"

namespace touchpanel::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const FakeAlerts::Panel kReadFailed{"Error", "To get the device parameters failed, please try again.", "OK"};

struct SimulatedSession : ::testing::Test {
  SimulatedSession() {
    for (auto& model : simulated::exampleTouchscreens()) {
      model.description.deviceConfig.CalibrateStatus = 0;
      machine.plugIn(machine.add(std::move(model)));
    }
  }
  simulated::SimulatedTouchscreen& infrared() { return *machine.all()[0]; }
  simulated::SimulatedTouchscreen& optical() { return *machine.all()[1]; }
  simulated::SimulatedTouchscreen& plain() { return *machine.all()[2]; }
  double errorOf(simulated::SimulatedTouchscreen& touchscreen) {
    return demo::probeAccuracy(touchscreen, {kScreen.width, kScreen.height}, clock)->mean;
  }

  TemporaryDirectory directory;
  simulated::SimulatedTouchscreens machine;
  demo::FingerClock clock;
};

TEST_F(SimulatedSession, FindsListsSetsCalibratesAndRemembersEveryKind) {
  std::vector<double> before;
  for (const auto& touchscreen : machine.all()) before.push_back(errorOf(*touchscreen));
  std::vector<Dictionary> accepted;
  {
    PanelRun run(machine, directory);
    EXPECT_THAT(run.column(entry_key::kCalibrateStatus), ElementsAre("NO", "NO", "NO"));
    run.controller().Settings();
    run.interface.rightClickTime.value = 1234;
    run.controller().SettingsOk();
    EXPECT_TRUE(run.calibrate(infrared(), 25));
    EXPECT_TRUE(run.calibrate(optical(), 4));
    EXPECT_TRUE(run.calibrate(plain(), 25));
    for (const auto& entry : run.list()) accepted.push_back(*entry);
    EXPECT_THAT(run.alerts.panels, IsEmpty());
  }
  for (std::size_t i = 0; i < before.size(); ++i)
    EXPECT_LT(errorOf(*machine.all()[i]), before[i] / 10) << machine.all()[i]->model().name;

  for (const auto& touchscreen : machine.all()) machine.unplug(*touchscreen);
  for (const auto& touchscreen : machine.all()) machine.plugIn(*touchscreen);
  PanelRun later(machine, directory);
  EXPECT_THAT(later.column(entry_key::kCalibrateStatus), ElementsAre("YES", "YES", "YES"));
  ASSERT_THAT(later.list(), SizeIs(3));
  EXPECT_THAT(later.column("RightClickTime"), Each("1234"));
  for (std::size_t row = 0; row < 3; ++row)
    EXPECT_EQ(imageOf(contextOf(*later.list()[row]).CalibParams),
              imageOf(contextOf(accepted[row]).CalibParams))
        << "row " << row << ", to the bit";
  for (std::size_t i = 0; i < before.size(); ++i)
    EXPECT_LT(errorOf(*machine.all()[i]), before[i] / 10) << "after a re-plug";
}

TEST_F(SimulatedSession, CalibratesTheSameGlassHoweverItsMonitorIsTurned) {
  for (const auto& [touchscreen, mode] : {std::pair{&infrared(), 25}, std::pair{&optical(), 4}}) {
    auto steady = touchscreen->model().distortion;
    steady.noise = 0;
    touchscreen->surface() = firmware::TouchSurface(steady);
    std::optional<CubicMap> unturned;
    for (const std::int32_t turn : {0, 1, 2, 3}) {
      SCOPED_TRACE(turn);
      PanelRun run(machine, directory);
      if (turn % 2 != 0) std::swap(run.screen.frame.width, run.screen.frame.height);
      const auto width = static_cast<std::int32_t>(run.screen.frame.width);
      const auto height = static_cast<std::int32_t>(run.screen.frame.height);
      run.monitors.become(
          {{{.connector = "DP-1", .area = {0, 0, width, height}, .turn = turn}}, width, height});
      ASSERT_TRUE(run.calibrate(*touchscreen, mode));
      const CubicMap map(contextOf(*run.controller().state().currentDict).CalibParams);
      if (!unturned) unturned = map;
      for (const PlanePoint raw : {PlanePoint{3000, 4000}, {30000, 9000}, {16000, 16000}, {7000, 29000}}) {
        EXPECT_NEAR(map.at(raw).x, unturned->at(raw).x, 4) << "of 32767: the solver's sums are single";
        EXPECT_NEAR(map.at(raw).y, unturned->at(raw).y, 4);
      }
      EXPECT_LT(run.facts.shown.calibration->fit->pixels.mean, 2)
          << "what is shown is turned with the picture";
    }
  }
}

TEST_F(SimulatedSession, SurvivesUnpluggingAtEveryTransfer) {
  for (auto* victim : {&infrared(), &optical()}) {
    for (int life = 0;; ++life) {
      ASSERT_LT(life, 200) << "the session never ends";
      machine.plugIn(*victim);
      int transfers = 0;
      machine.usb().beforeTransfer = [&](const DeviceRequest&) {
        if (transfers++ == life) machine.unplug(*victim);
      };
      machine.unplug(victim == &infrared() ? optical() : infrared());
      PanelRun run(machine, directory);
      const bool accepted = run.calibrate(*victim, 4);
      const bool survived = machine.isPluggedIn(*victim);
      machine.usb().beforeTransfer = nullptr;
      run.runLoop.performSources();

      EXPECT_FALSE(run.application.isEnding()) << "the other touchscreen is still there";
      EXPECT_EQ(run.list().size(), survived ? 2U : 1U) << "unplugged at transfer " << life;
      EXPECT_THAT(run.alerts.panels, Each(kReadFailed));
      EXPECT_LE(run.alerts.panels.size(), 1U);
      EXPECT_FALSE(run.waitNotice.isShown);
      if (!survived) continue;
      EXPECT_TRUE(accepted) << "an undisturbed session";
      EXPECT_GT(life, 10);
      break;
    }
  }
}

}  // namespace
}  // namespace touchpanel::testing
