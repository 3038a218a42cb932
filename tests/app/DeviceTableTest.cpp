#include <limits>

#include <gtest/gtest.h>

#include "PanelRig.h"
#include "app/CommandButtons.h"
#include "app/DeviceTable.h"

namespace touchpanel::testing {
namespace {

class DeviceTableRows : public ::testing::Test, public PanelRig {
 protected:
  SettingsPanel settings{outlets, ports, state};
  DeviceTable table{outlets, state, settings};
};

TEST_F(DeviceTableRows, AreTheListedEntriesAndTheirColumnsTheirKeys) {
  list(0x0080, "first");
  auto second = list(0x0C20, "second");
  second->set(entry_key::kMonitorID, 0);
  second->set(entry_key::kFirmwareVersion, "---");
  second->set(entry_key::kLocationID, static_cast<std::int32_t>(0x8A100000U));
  storeContext(*second, {});
  EXPECT_EQ(table.numberOfRows(), 2);
  const std::pair<const char*, const char*> cells[] = {
      {"SN", "second"},     {"FirmwareVersion", "---"}, {"CalibrateStatus", "YES"},
      {"MonitorID", "0"},   {"ProductID", "3104"},      {"LocationID", "0x8a100000"},
      {"EnableTouch", "1"}, {"DeviceContext", ""},      {"NoSuchKey", ""},
  };
  for (const auto& [column, text] : cells) EXPECT_EQ(table.objectValue(column, 1), text) << column;
}

TEST_F(DeviceTableRows, SelectTheFirstOneWhenTheFirstCellIsAskedFor) {
  EXPECT_EQ(table.objectValue("SN", 0), "");
  EXPECT_TRUE(state.bFirstLoading) << "an empty list has no first cell";

  auto first = list(0x0080, "first");
  auto second = list(0x0C20, "second");
  state.currentDict = std::make_shared<Dictionary>();
  first->set(settings_key::kClickRange, 21);
  EXPECT_EQ(table.objectValue("SN", 1), "second");
  EXPECT_EQ(state.currentDict, first);
  EXPECT_EQ(interface.deviceTableView.highlighted, 0);
  EXPECT_EQ(interface.singleClickArea.value, 21);

  table.shouldSelectRow(1);
  table.objectValue("SN", 0);
  EXPECT_EQ(state.currentDict, second) << "only once";
}

TEST_F(DeviceTableRows, ShowTheirOwnSettingsWhenSelected) {
  auto first = list(0x0080, "first");
  auto second = list(0x0C20, "second");
  second->set(settings_key::kClickRange, 33);
  second->set(entry_key::kCalibrateStatus, entry_key::kNo);
  EXPECT_TRUE(table.shouldSelectRow(1));
  EXPECT_EQ(state.currentDict, second) << "the listed entry itself, no copy";
  EXPECT_EQ(interface.singleClickArea.value, 33);
  EXPECT_FALSE(interface.btnReset.enabled);
  EXPECT_TRUE(interface.smoothness.enabled);
  EXPECT_TRUE(table.shouldSelectRow(0));
  EXPECT_FALSE(interface.smoothness.enabled);
}

TEST_F(DeviceTableRows, OutsideTheListAreRefused) {
  auto only = list(0x0080, "only");
  for (const auto row :
       {-1, 1, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_FALSE(table.shouldSelectRow(row));
    EXPECT_EQ(table.objectValue("SN", row), "");
    EXPECT_EQ(state.currentDict, only);
  }
}

TEST_F(DeviceTableRows, ThatLeaveTakeUnappliedChangesOfTheSheetWithThem) {
  list(0x0080, "leaving");
  auto staying = list(0x0C20, "staying");
  staying->set(settings_key::kClickRange, 44);
  settings.Settings();
  interface.singleClickArea.value = 9;
  settings.SettingsChange();

  state.deviceListArray.erase(state.deviceListArray.begin());
  table.selectFirstRow();

  EXPECT_EQ(state.currentDict, staying);
  EXPECT_EQ(interface.deviceTableView.highlighted, 0);
  EXPECT_EQ(interface.singleClickArea.value, 44);
  EXPECT_FALSE(interface.btnApply.enabled);
  EXPECT_FALSE(interface.btnReset.enabled) << "the sheet is still up";
  EXPECT_EQ(sheets.open, &interface.SettingsWindow);
  EXPECT_EQ(statusLine.messages.back(), (StatusMessage{StatusText::SettingsReloaded, "staying"}));
  settings.SettingsOk();
  EXPECT_EQ(registry.writes.size(), 3U) << "one driver instance and its double-click pair";
}

TEST(CommandButtonRules, ResetNeedsACalibrationAndTheMainWindow) {
  struct Case {
    const char* status;
    bool enableItems, resetEnabled;
  };
  for (const auto& c : {Case{"YES", true, true}, Case{"NO", true, false}, Case{"no", true, true},
                        Case{"", true, true}, Case{"YES", false, false}, Case{"NO", false, false}}) {
    PanelRig rig;
    rig.list(0x0080, "panel")->set(entry_key::kCalibrateStatus, c.status);
    rig.state.bEnableItems = c.enableItems;
    rig.interface.btnMapping.enabled = false;
    auto& i = rig.interface;
    Control* const following[] = {&i.deviceTableView, &i.btnCalibrate, &i.btnSettings, &i.btnExit,
                                  &i.btnAbout};
    for (auto* control : following) control->setEnabled(!c.enableItems);
    CommandButtons(rig.outlets, rig.state).enableAll();
    EXPECT_EQ(i.btnReset.enabled, c.resetEnabled) << c.status;
    for (auto* control : following) EXPECT_EQ(control->isEnabled(), c.enableItems);
    EXPECT_FALSE(i.btnMapping.enabled);
  }
}

}  // namespace
}  // namespace touchpanel::testing
