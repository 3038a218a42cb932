#include <algorithm>
#include <memory>

#include <gmock/gmock.h>

#include "ControllerRig.h"
#include "demo/measure/AccuracyProbe.h"
#include "providers/files/LibplistFiles.h"
#include "providers/simulated/SimulatedTouchscreens.h"
#include "support/TemporaryDirectory.h"
#include "support/TouchedView.h"

namespace touchpanel::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr Size kScreen{1920, 1080};
const FakeAlerts::Panel kReadFailed{"Error", "To get the device parameters failed, please try again.", "OK"};

/// One run of the control panel, with the world it runs in; the machine and the files outlive it.
class PanelRun : public ControllerRig {
 public:
  PanelRun(simulated::SimulatedTouchscreens& machine, const TemporaryDirectory& directory)
      : controller_(outletsOf(interface), portsOn(machine.registry(), machine.usb(), machine.usb(), disk_,
                                                  ConfigPaths::in(directory.path()))) {
    controller_.awakeFromNib();
    if (controller_.numberOfRows() > 0) controller_.objectValue(entry_key::kSN, 0);
  }
  MyController& controller() { return controller_; }
  const DeviceListArray& list() const { return controller_.state().deviceListArray; }

  /// Selects the touchscreen and leads a finger through its calibration. False when it did not end by OK.
  bool calibrate(simulated::SimulatedTouchscreen& touchscreen, int mode) {
    if (!select(touchscreen)) return false;
    const auto entry = controller_.state().currentDict;
    entry->set(settings_key::kCalibrateMode, mode);
    controller_.Calibration();
    TouchedView finger(touchscreen, kScreen);
    finger.show(*screen.windows.back()->view, screen.windows.back());
    for (int i = 0; i < mode && !finger.isClosed(); ++i) finger.tapTarget();
    if (!finger.isClosed()) finger.tapMiddle();
    return finger.isClosed() && entry->text(entry_key::kCalibrateStatus) == entry_key::kYes;
  }
  bool select(const simulated::SimulatedTouchscreen& touchscreen) {
    for (std::size_t row = 0; row < list().size(); ++row)
      if (static_cast<std::uint32_t>(list()[row]->integer(entry_key::kLocationID)) ==
          touchscreen.locationId())
        return controller_.shouldSelectRow(static_cast<std::int32_t>(row));
    return false;
  }
  std::vector<std::string> column(const char* key) {
    std::vector<std::string> texts;
    for (std::int32_t row = 0; row < controller_.numberOfRows(); ++row)
      texts.push_back(controller_.objectValue(key, row));
    return texts;
  }

 private:
  files::LibplistFiles disk_;
  MyController controller_;
};

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
