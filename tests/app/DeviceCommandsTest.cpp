#include <gmock/gmock.h>

#include "PanelRig.h"
#include "app/DeviceCommands.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Write = FakeRegistry::Write;

class DeviceCommand : public ::testing::Test, public PanelRig {
 protected:
  DeviceCommands commands{outlets, ports, state};
};

TEST_F(DeviceCommand, ResetTellsTheDriverAndEmptiesTheDevice) {
  struct Case {
    std::int32_t product;
    bool usesDevice, usesFile;
  };
  for (const auto& c : {Case{0x0080, true, false}, Case{0x0085, true, false}, Case{0x0086, true, false},
                        Case{0x0087, true, false}, Case{0x0C20, true, false}, Case{0x0001, false, true},
                        Case{0x4321, false, false}}) {
    SCOPED_TRACE(c.product);
    PanelRig rig;
    auto other = rig.list(0x0080, "other");
    auto entry = rig.list(c.product, "panel");
    rig.state.currentDict = entry;
    rig.process.DeviceContext.DeviceConfig.CalibrateStatus = 1;
    rig.process.DeviceContext.DeviceConfig.MonitorID = 7;

    DeviceCommands(rig.outlets, rig.ports, rig.state).Reset();

    EXPECT_THAT(rig.registry.writes, ElementsAre(Write{PanelRig::handleOf(entry), property::kCalibration,
                                                       Dictionary{{calibration_key::kCalibrateStatus, false},
                                                                  {calibration_key::kMinX, 0},
                                                                  {calibration_key::kMinY, 0},
                                                                  {calibration_key::kMaxX, 32767},
                                                                  {calibration_key::kMaxY, 32767}}}));
    const auto& device = rig.devices.at(entry->integer(entry_key::kDeviceInterface));
    EXPECT_EQ(device.count(FakeUsbDevice::Operation::Open), c.usesDevice ? 1U : 0U);
    EXPECT_EQ(rig.files.files.contains("device.plist"), c.usesFile);
    EXPECT_FALSE(rig.interface.btnReset.enabled);
    EXPECT_EQ(rig.interface.deviceTableView.reloads, 1);
    EXPECT_EQ(entry->text(entry_key::kCalibrateStatus), "NO");
    EXPECT_EQ(other->text(entry_key::kCalibrateStatus), "YES");
    _DEVICT_CONTEXT expected{};
    expected.DeviceConfig.MonitorID = 7;  // the process-wide record goes out as it stands
    EXPECT_EQ(imageOf(contextOf(*entry)), imageOf(expected));
    EXPECT_EQ(rig.statusLine.messages, std::vector{(StatusMessage{StatusText::CalibrationReset, "panel"})});
  }
}

TEST_F(DeviceCommand, ResetGoesOnWhenDriverAndDeviceAreGone) {
  auto entry = list(0x0080, "panel");
  registry.remove(handleOf(entry));
  devices.begin()->second.release();
  commands.Reset();
  EXPECT_EQ(entry->text(entry_key::kCalibrateStatus), "NO");
}

TEST_F(DeviceCommand, EnableTouchTurnsEveryEntryOverButTellsOneDriver) {
  auto first = list(0x0080, "first");
  auto second = list(0x0C20, "second");
  second->set(settings_key::kEnableTouch, false);  // follows the selected one whatever it held
  commands.EnableTouch();
  EXPECT_FALSE(first->boolean(settings_key::kEnableTouch));
  EXPECT_FALSE(second->boolean(settings_key::kEnableTouch));
  EXPECT_EQ(interface.btnEnableTouch.title, "Enable Touch");

  state.currentDict = second;
  commands.EnableTouch();
  EXPECT_TRUE(first->boolean(settings_key::kEnableTouch));
  EXPECT_TRUE(second->boolean(settings_key::kEnableTouch));
  EXPECT_EQ(interface.btnEnableTouch.title, "Disable Touch");

  const auto message = [](bool on) { return Dictionary{{configration_key::kEnableTouch, on}}; };
  EXPECT_THAT(registry.writes, ElementsAre(Write{handleOf(first), property::kConfigration, message(false)},
                                           Write{handleOf(second), property::kConfigration, message(true)}));
  EXPECT_THAT(statusLine.messages, ElementsAre(StatusMessage{StatusText::TouchDisabled, "first"},
                                               StatusMessage{StatusText::TouchEnabled, "second"}));
}

TEST_F(DeviceCommand, WithNothingSelectedOnlySaysSo) {
  commands.Reset();
  commands.EnableTouch();
  EXPECT_THAT(registry.writes, IsEmpty());
  EXPECT_TRUE(interface.btnReset.enabled);
  EXPECT_EQ(interface.deviceTableView.reloads, 0);
  EXPECT_THAT(statusLine.messages, ElementsAre(StatusMessage{StatusText::NoDeviceSelected},
                                               StatusMessage{StatusText::NoDeviceSelected}));
}

}  // namespace
}  // namespace touchpanel::testing
