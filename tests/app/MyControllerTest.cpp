#include <gmock/gmock.h>

#include "ControllerRig.h"
#include "providers/simulated/SimulatedTouchscreens.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A controller on a simulated machine with one touchscreen of each kind.
class Controller : public ::testing::Test, public ControllerRig {
 protected:
  Controller() {
    for (auto& model : simulated::exampleTouchscreens()) machine.add(model);
  }
  simulated::SimulatedTouchscreen& touchscreen(std::uint16_t productId) {
    for (const auto& each : machine.all())
      if (each->productId() == productId) return *each;
    throw std::logic_error("no such touchscreen");
  }
  void start() {
    for (const auto& each : machine.all()) machine.plugIn(*each);
    controller.awakeFromNib();
    showTable();
  }
  void unplug(std::uint16_t productId) {
    machine.unplug(touchscreen(productId));
    runLoop.performSources();
  }
  std::vector<std::int32_t> listedProducts() const {
    std::vector<std::int32_t> products;
    for (const auto& entry : controller.state().deviceListArray)
      products.push_back(entry->integer(entry_key::kProductID));
    return products;
  }
  const DeviceEntry& entry(std::size_t row) const { return controller.state().deviceListArray.at(row); }
  const DeviceEntry& selected() const { return controller.state().currentDict; }
  /// What a table does once it is on screen.
  void showTable() { controller.objectValue(entry_key::kSN, 0); }

  simulated::SimulatedTouchscreens machine;
  FakePropertyListFiles files;
  MyController controller{outletsOf(interface), portsOn(machine.registry(), machine.usb(), machine.usb(),
                                                        files, {"driver.plist", "device.plist"})};
};

TEST_F(Controller, ListsWhatIsAttachedBeforeTheWindowIsShown) {
  for (const auto& each : machine.all()) machine.plugIn(*each);
  controller.awakeFromNib();
  EXPECT_THAT(listedProducts(), ElementsAre(0x0001, 0x0C20, 0x0080));
  EXPECT_EQ(interface.deviceTableView.reloads, 3);
  EXPECT_FALSE(interface.btnMapping.enabled);
  EXPECT_FALSE(interface.KeyWindow.hidesOnDeactivate);
  EXPECT_EQ(interface.lbDriverVersion.text, "15.1.3.0004");
  EXPECT_TRUE(selected()->empty()) << "nothing is selected before the table asks for a cell";
  EXPECT_FALSE(application.isEnding());
  showTable();
  EXPECT_EQ(selected(), entry(0));
  EXPECT_NE(process.devIntf, nullptr);
  EXPECT_TRUE(controller.CheckDevice(touchscreen(0x0C20).locationId()));

  controller.init();
  EXPECT_EQ(controller.numberOfRows(), 0);
  EXPECT_EQ(process.devIntf, nullptr);
  EXPECT_TRUE(selected()->empty());
}

TEST_F(Controller, EndsBeforeTheWindowIsShownWhenThereIsNoDriverInstance) {
  alerts.onShow = [&] {
    EXPECT_FALSE(interface.btnMapping.enabled) << "done before discovery";
    EXPECT_TRUE(interface.KeyWindow.hidesOnDeactivate) << "done after discovery";
    EXPECT_EQ(interface.lbDriverVersion.text, "");
  };
  controller.awakeFromNib();
  EXPECT_THAT(alerts.panels, ElementsAre(FakeAlerts::Panel{"Warning", "Not found touch device.", "OK"}));
  EXPECT_THAT(alerts.advices, ElementsAre(adviceOnDriver(kSuccess))) << "the service answers";
  EXPECT_TRUE(application.isTerminated);
}

TEST_F(Controller, SaysInThePlaceOfTheListAndOnTheStatusLineWhyATouchscreenIsNotListed) {
  files.files["driver.plist"] = {{"TouchMode", 1}};
  machine.plugIn(touchscreen(0x0080));
  controller.awakeFromNib();
  ASSERT_EQ(emptyList.shown.size(), 2U);
  EXPECT_EQ(emptyList.shown[0].state, ListNotice::State::Waiting);
  const auto& [state, why, advice] = emptyList.shown[1];
  EXPECT_EQ(state, ListNotice::State::Refused);
  EXPECT_EQ(why, (StatusMessage{"A touchscreen cannot be listed: the settings file lacks %1.",
                                "\"EnableTouch\" (driver.plist)"}));
  EXPECT_EQ(statusLine.messages.back(), why);
  files.files.clear();
  machine.plugIn(touchscreen(0x0C20));
  runLoop.performSources();
  EXPECT_THAT(emptyList.shown, IsEmpty());
  EXPECT_THAT(listedProducts(), ElementsAre(0x0C20));
}

TEST_F(Controller, SelectsTheFirstRowWhenAnyTouchscreenLeavesAndEndsWithTheLastOne) {
  start();
  controller.shouldSelectRow(2);
  interface.deviceTableView.highlighted = 2;
  unplug(0x0001);
  EXPECT_THAT(listedProducts(), ElementsAre(0x0C20, 0x0080));
  EXPECT_EQ(selected(), entry(0));
  EXPECT_EQ(interface.deviceTableView.highlighted, 0);
  EXPECT_TRUE(interface.smoothness.enabled) << "the optical one's settings are shown";
  EXPECT_EQ(statusLine.messages.back(), StatusMessage{"A touchscreen was unplugged."});
  unplug(0x0080);
  EXPECT_FALSE(application.exitStatus.has_value());
  unplug(0x0C20);
  EXPECT_THAT(listedProducts(), IsEmpty());
  EXPECT_EQ(application.exitStatus, 0);
}

TEST_F(Controller, KeepsTheSheetAsItIsWhenATouchscreenArrives) {
  machine.plugIn(touchscreen(0x0080));
  controller.awakeFromNib();
  showTable();
  controller.Settings();
  interface.singleClickArea.value = 9;
  controller.SettingsChange();

  machine.plugIn(touchscreen(0x0C20));
  runLoop.performSources();
  ASSERT_THAT(listedProducts(), ElementsAre(0x0080, 0x0C20));
  EXPECT_EQ(selected(), entry(0));
  EXPECT_EQ(interface.singleClickArea.value, 9);
  EXPECT_TRUE(interface.btnApply.enabled);
  EXPECT_EQ(statusLine.messages.back(), (StatusMessage{"%1 was connected.", entry(1)->text(entry_key::kSN)}));
  controller.SettingsOk();
  EXPECT_EQ(entry(1)->integer(settings_key::kClickRange), 9) << "it gets the settings like the others";
}

TEST_F(Controller, AnswersItsWindowsAsAProgramOfOneWindow) {
  EXPECT_TRUE(controller.applicationShouldTerminateAfterLastWindowClosed());
  EXPECT_TRUE(controller.windowShouldClose());
  EXPECT_FALSE(controller.shouldSelectColumn(0));

  controller.About();
  EXPECT_EQ(sheets.open, &interface.AboutWindow);
  EXPECT_EQ(sheets.parent, &interface.KeyWindow);
  controller.AboutClose();
  EXPECT_TRUE(interface.AboutWindow.isOut);
  EXPECT_EQ(sheets.open, nullptr);
  EXPECT_EQ(sheets.returnCode, 1);

  controller.Exit();
  EXPECT_EQ(application.exitStatus, 0);
  EXPECT_EQ(files.writeAttempts, 0);
}

}  // namespace
}  // namespace touchpanel::testing
