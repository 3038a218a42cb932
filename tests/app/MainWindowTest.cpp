#include <limits>

#include <gmock/gmock.h>

#include "ControllerRig.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using Write = FakeRegistry::Write;

/// The table and the commands of the main window.
class MainWindow : public ::testing::Test, public ListedTouchscreens {};

TEST_F(MainWindow, ShowsTheListedEntriesUnderTheirKeys) {
  list(0x0080, "first");
  list(0x0C20, "second")->set(entry_key::kLocationID, static_cast<std::int32_t>(0x8A100000U));
  controller.objectValue("SN", 0);
  EXPECT_EQ(controller.numberOfRows(), 2);
  const std::pair<const char*, const char*> cells[] = {
      {"SN", "second"},     {"FirmwareVersion", "---"}, {"CalibrateStatus", "YES"},
      {"MonitorID", "0"},   {"ProductID", "3104"},      {"LocationID", "0x8a100000"},
      {"EnableTouch", "1"}, {"DeviceContext", ""},      {"NoSuchKey", ""},
  };
  for (const auto& [column, text] : cells) EXPECT_EQ(controller.objectValue(column, 1), text) << column;
}

TEST_F(MainWindow, SelectsTheFirstRowOnceWhenItsFirstCellIsAskedFor) {
  EXPECT_EQ(controller.objectValue("SN", 0), "") << "an empty list has no first cell";
  auto first = list(0x0080, "first");
  list(0x0C20, "second");
  controller.shouldSelectRow(1);
  first->set(settings_key::kClickRange, 21);
  EXPECT_EQ(controller.objectValue("SN", 1), "second");
  EXPECT_EQ(controller.state().currentDict, first);
  EXPECT_EQ(interface.deviceTableView.highlighted, 0);
  EXPECT_EQ(interface.singleClickArea.value, 21);

  controller.shouldSelectRow(1);
  controller.objectValue("SN", 0);
  EXPECT_EQ(selected().text("SN"), "second");
}

TEST_F(MainWindow, ShowsTheSettingsOfTheRowThatIsSelected) {
  auto first = list(0x0080, "first");
  auto second = list(0x0C20, "second");
  second->set(settings_key::kClickRange, 33);
  second->set(entry_key::kCalibrateStatus, entry_key::kNo);
  EXPECT_TRUE(controller.shouldSelectRow(1));
  EXPECT_EQ(controller.state().currentDict, second) << "the listed entry itself, no copy";
  EXPECT_EQ(interface.singleClickArea.value, 33);
  EXPECT_FALSE(interface.btnReset.enabled);
  EXPECT_TRUE(interface.smoothness.enabled);
  EXPECT_TRUE(controller.shouldSelectRow(0));
  EXPECT_FALSE(interface.smoothness.enabled);
  for (const auto row :
       {-1, 2, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_FALSE(controller.shouldSelectRow(row));
    EXPECT_EQ(controller.objectValue("SN", row), "");
    EXPECT_EQ(controller.state().currentDict, first);
  }
}

TEST_F(MainWindow, DropsUnappliedChangesOfAnOpenSheetWithTheTouchscreenThatLeaves) {
  auto leaving = list(0x0080, "leaving");
  list(0x0C20, "staying")->set(settings_key::kClickRange, 44);
  controller.Settings();
  interface.singleClickArea.value = 9;
  controller.SettingsChange();
  registry.remove(handleOf(leaving));
  registry.writes.clear();
  controller.RemoveDeviceFromArray();

  EXPECT_EQ(selected().text("SN"), "staying");
  EXPECT_EQ(interface.deviceTableView.highlighted, 0);
  EXPECT_EQ(interface.singleClickArea.value, 44);
  EXPECT_FALSE(interface.btnApply.enabled);
  EXPECT_FALSE(interface.btnReset.enabled) << "the sheet is still up";
  EXPECT_EQ(sheets.open, &interface.SettingsWindow);
  EXPECT_EQ(status(),
            (StatusMessage{"Touchscreens have changed; the settings shown are those of %1.", "staying"}));
  controller.SettingsOk();
  EXPECT_EQ(registry.writes.size(), 3U) << "one driver instance and its double-click pair";
}

TEST_F(MainWindow, OffersResetForWhatMayBeCalibrated) {
  auto entry = list(0x0080, "panel");
  for (const auto& [calibrateStatus, isOffered] :
       {std::pair{"YES", true}, {"NO", false}, {"no", true}, {"", true}}) {
    entry->set(entry_key::kCalibrateStatus, calibrateStatus);
    controller.EnableAllItems();
    EXPECT_EQ(interface.btnReset.enabled, isOffered) << calibrateStatus;
  }
  interface.btnMapping.enabled = false;
  controller.EnableAllItems();
  EXPECT_FALSE(interface.btnMapping.enabled);
}

TEST_F(MainWindow, ResetsTheDriverAndWhereTheDeviceKeepsItsCalibration) {
  auto other = list(0x0080, "other");
  for (const bool inFile : {false, true}) {
    auto entry = list(inFile ? 0x0001 : 0x0C20, "panel");
    controller.shouldSelectRow(controller.numberOfRows() - 1);
    process.DeviceContext.DeviceConfig.CalibrateStatus = 1;
    process.DeviceContext.DeviceConfig.MonitorID = 7;
    registry.writes.clear();
    controller.Reset();
    EXPECT_THAT(registry.writes, ElementsAre(Write{handleOf(entry), property::kCalibration,
                                                   Dictionary{{calibration_key::kCalibrateStatus, false},
                                                              {calibration_key::kMinX, 0},
                                                              {calibration_key::kMinY, 0},
                                                              {calibration_key::kMaxX, 32767},
                                                              {calibration_key::kMaxY, 32767}}}));
    const auto& device = devices.at(entry->integer(entry_key::kDeviceInterface));
    EXPECT_EQ(device.count("open"), inFile ? 0U : 1U);
    EXPECT_EQ(files.files.contains("device.plist"), inFile);
    EXPECT_FALSE(interface.btnReset.enabled);
    EXPECT_EQ(interface.deviceTableView.reloads, 1);
    EXPECT_EQ(entry->text(entry_key::kCalibrateStatus), "NO");
    EXPECT_EQ(other->text(entry_key::kCalibrateStatus), "YES");
    _DEVICT_CONTEXT expected{};
    expected.DeviceConfig.MonitorID = 7;  // the process-wide record goes out as it stands
    EXPECT_EQ(imageOf(contextOf(*entry)), imageOf(expected));
  }
}

TEST_F(MainWindow, SwitchesTouchInEveryEntryButInOneDriver) {
  auto first = list(0x0080, "first");
  auto second = list(0x0C20, "second");
  second->set(settings_key::kEnableTouch, false);  // follows the selected one whatever it held
  registry.writes.clear();
  for (const bool on : {false, true}) {
    controller.shouldSelectRow(on ? 1 : 0);
    controller.EnableTouch();
    for (const auto& entry : {first, second}) EXPECT_EQ(entry->boolean(settings_key::kEnableTouch), on);
    EXPECT_EQ(interface.btnEnableTouch.title, on ? "Disable Touch" : "Enable Touch");
    EXPECT_EQ(registry.writes.back(), (Write{handleOf(on ? second : first), property::kConfigration,
                                             Dictionary{{configration_key::kEnableTouch, on}}}));
    EXPECT_EQ(status(), (on ? StatusMessage{"Touch was enabled on %1.", "second"}
                            : StatusMessage{"Touch was disabled on %1.", "first"}));
  }
  EXPECT_EQ(registry.writes.size(), 2U);
}

}  // namespace
}  // namespace touchpanel::testing
