#include <gmock/gmock.h>

#include "ControllerRig.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint16_t kInfrared = 0x0080;
constexpr std::uint16_t kOptical = 0x0C20;

/// As a selected touchscreen that has had its touch disabled saves them. No value equals a default or another one
/// of its type, and some are out of every range.
const Dictionary kUnusualFile{
    {"TouchMode", 17},
    {"EnableTouch", false},
    {"ClickRange", 11},
    {"Smoothness", -3},
    {"CalibrateMode", 25},
    {"CalibrateType", 3},
    {"EnableRightClick", false},
    {"RightClickTime", 999999},
    {"RightClickArea", 14},
    {"EnableTouchSensitivity", false},
    {"TouchSensitivityTime", 170},
    {"TouchSensitivityArea", 18},
};
/// The same as controls() has them, and the defaults.
constexpr std::tuple kUnusual{17, 11, -3, 1, 3, false, 999999, 14, 715, 16, false, 170, 18};
constexpr std::tuple kDefaults{2, 0, 1, 0, 0, true, 1000, 5, 500, 5, true, 100, 5};

class SettingsOfTheSheet : public ::testing::Test, public ListedTouchscreens {
 protected:
  auto controls() {
    auto& i = interface;
    return std::tie(i.touchMode.row, i.singleClickArea.value, i.smoothness.value, i.calibMode.row,
                    i.calibType.row, i.enableRightClick.on, i.rightClickTime.value, i.rightClickArea.value,
                    i.doubleClickTime.value, i.doubleClickArea.value, i.enableTouchSensitivity.on,
                    i.touchSensitivityTime.value, i.touchSensitivityArea.value);
  }
  static void store(const Dictionary& values, Dictionary& entry) {
    for (const auto& [key, value] : values) entry.set(key, value);
  }
  DeviceEntry listUnusual() {
    auto entry = list(kOptical, "unusual");
    store(kUnusualFile, *entry);
    store({{"DoubleClickTime", 715}, {"DoubleClickArea", 16}}, *entry);
    return entry;
  }
};

TEST_F(SettingsOfTheSheet, ShowsEverySettingOfTheSelectedDevice) {
  auto entry = listUnusual();
  interface.enableDoubleClick.on = true;
  interface.calibType.enabled = true;
  process.devIntf = nullptr;
  controller.UpdateSettings();
  EXPECT_EQ(controls(), kUnusual);
  EXPECT_EQ(interface.btnEnableTouch.title, "Enable Touch");
  EXPECT_FALSE(interface.calibType.enabled);
  EXPECT_TRUE(interface.enableDoubleClick.on) << "the double-click box is never set";
  EXPECT_EQ(process.devIntf, &devices.at(entry->integer(entry_key::kDeviceInterface)));
}

TEST_F(SettingsOfTheSheet, ReadsNumbersOfEveryTypeThatAFileCanHold) {
  store({{"ClickRange", false},  // the file's own default
         {"Smoothness", std::int64_t{7}},
         {"EnableRightClick", 0},
         {"RightClickTime", "soon"}},
        *list(kOptical, "optical"));
  controller.UpdateSettings();
  EXPECT_EQ(controls(), (std::tuple{2, 0, 7, 0, 0, false, 0, 5, 500, 5, true, 100, 5}));
}

TEST_F(SettingsOfTheSheet, ShowsDefaultsForWhatAnEntryLacks) {
  auto entry = list(kInfrared, "infrared");
  controls() = kUnusual;
  for (const char* key : {"DoubleClickTime", "DoubleClickArea", "TouchMode", "EnableTouch"})
    entry->remove(key);
  controller.Settings();
  EXPECT_EQ(controls(), kDefaults);
  EXPECT_EQ(interface.btnEnableTouch.title, "Enable Touch");
  controller.SettingsChange();
  EXPECT_FALSE(interface.btnApply.enabled) << "a default shown for want of a value is no change";
}

TEST_F(SettingsOfTheSheet, KnowsTwoNumbersOfTargets) {
  struct Case {
    std::int32_t stored, row, savedAs;
  };
  auto entry = list(kInfrared, "infrared");
  for (const auto& c : {Case{4, 0, 4}, Case{25, 1, 25}, Case{9, 1, 25}, Case{0, 1, 25}, Case{-4, 1, 25}}) {
    entry->set(settings_key::kCalibrateMode, c.stored);
    controller.Settings();
    EXPECT_EQ(interface.calibMode.row, c.row) << c.stored;
    controller.SettingsOk();
    EXPECT_EQ(entry->integer(settings_key::kCalibrateMode), c.savedAs) << c.stored;
  }
}

TEST_F(SettingsOfTheSheet, EnablesWhatTheTouchModeAndTheKindOfDeviceAllow) {
  enum State { Off, On, AsItWas };
  struct Case {
    std::uint16_t product;
    std::int32_t mode;
    bool rightClickOn, filterOn;
    State rightClick, rightClickDetails, filters, filterDetails;
  };
  const Case cases[] = {
      {kInfrared, 0, true, true, Off, Off, Off, Off},
      {kInfrared, 1, true, true, Off, Off, Off, Off},
      {kInfrared, 2, true, true, On, On, Off, Off},
      {kInfrared, 2, false, true, On, Off, Off, Off},
      {kInfrared, 3, true, true, AsItWas, AsItWas, Off, Off},
      {0x0001, 2, true, true, On, On, Off, Off},
      {kOptical, 0, true, true, Off, Off, On, On},
      {kOptical, 1, false, false, Off, Off, On, Off},
      {kOptical, 2, true, false, On, On, On, Off},
      {kOptical, -1, true, true, AsItWas, AsItWas, On, On},
  };
  auto& i = interface;
  const auto dependents = {std::pair<Control*, State Case::*>{&i.enableRightClick, &Case::rightClick},
                           {&i.rightClickTime, &Case::rightClickDetails},
                           {&i.rightClickArea, &Case::rightClickDetails},
                           {&i.smoothness, &Case::filters},
                           {&i.enableTouchSensitivity, &Case::filters},
                           {&i.touchSensitivityTime, &Case::filterDetails},
                           {&i.touchSensitivityArea, &Case::filterDetails}};
  auto entry = list(kOptical, "any");
  for (const auto& c : cases)
    for (const bool before : {false, true}) {
      SCOPED_TRACE(::testing::Message() << c.product << " mode " << c.mode << " before " << before);
      entry->set(entry_key::kProductID, std::int32_t{c.product});
      for (const auto& [control, wanted] : dependents) control->setEnabled(before);
      i.enableRightClick.on = c.rightClickOn;
      i.enableTouchSensitivity.on = c.filterOn;
      controller.RefreshTouchMode(c.mode);
      for (const auto& [control, wanted] : dependents)
        EXPECT_EQ(control->isEnabled(), c.*wanted == AsItWas ? before : c.*wanted == On);
    }
}

TEST_F(SettingsOfTheSheet, FollowsTheTouchModeAndTheBoxThatAreBeingChosen) {
  auto entry = list(kInfrared, "infrared");
  interface.touchMode.row = 0;
  controller.SettingsChange();
  EXPECT_FALSE(interface.enableRightClick.enabled);

  // What depends on a box follows the box that is shown, whatever it was while another device was.
  for (const bool isOn : {false, true}) {
    entry->set("EnableRightClick", isOn);
    controller.UpdateSettings();
    EXPECT_EQ(interface.enableRightClick.on, isOn);
    EXPECT_EQ(interface.rightClickTime.enabled, isOn);
  }
}

TEST_F(SettingsOfTheSheet, OffersApplyForADifferenceInAnyControl) {
  list(kOptical, "optical");
  const auto differsBy = [&](auto& value) {
    controller.Settings();
    const auto stored = value;
    value = static_cast<std::remove_cvref_t<decltype(value)>>(!value);
    controller.SettingsChange();
    const bool offered = interface.btnApply.enabled;
    value = stored;
    controller.SettingsChange();
    EXPECT_FALSE(interface.btnApply.enabled) << "back again";
    controller.SettingsCancel();
    return offered;
  };
  const auto offers = std::apply([&](auto&... each) { return std::array{differsBy(each)...}; }, controls());
  EXPECT_THAT(offers, ::testing::Each(true));
  EXPECT_FALSE(differsBy(interface.enableDoubleClick.on));
}

TEST_F(SettingsOfTheSheet, SavesAsOftenAsTheButtonsSay) {
  struct Case {
    const char* steps;  ///< Settings, a change, back again, Default, Apply, Ok, Cancel
    int saves;
  };
  for (const auto& [steps, saves] :
       {Case{"SO", 1}, Case{"SC", 0}, Case{"S+C", 0}, Case{"S+O", 1}, Case{"SAO", 1}, Case{"S+AC", 1},
        Case{"S+AO", 1}, Case{"S+A+O", 2}, Case{"SA+-O", 2}, Case{"S+AAO", 2}, Case{"S+ADO", 2},
        Case{"SADO", 1},  // the defaults are what is stored
        Case{"SAOSO", 2}, Case{"SACSC", 1}}) {
    ListedTouchscreens rig;
    rig.list(kInfrared, "infrared");
    for (const char step : std::string(steps)) {
      if (step == '+' || step == '-') {
        rig.interface.singleClickArea.value += step == '+' ? 1 : -1;
        rig.controller.SettingsChange();
      }
      if (step == 'S') rig.controller.Settings();
      if (step == 'D') rig.controller.SettingsDefault();
      if (step == 'A') rig.controller.SettingsApply();
      if (step == 'O') rig.controller.SettingsOk();
      if (step == 'C') rig.controller.SettingsCancel();
      if (step == 'S' || step == 'A') {
        EXPECT_FALSE(rig.interface.btnApply.enabled) << steps;
      }
    }
    EXPECT_EQ(rig.files.writeAttempts, saves) << steps;
    EXPECT_EQ(rig.registry.writes.size(), 3U * static_cast<unsigned>(saves)) << steps;
  }
}

TEST_F(SettingsOfTheSheet, AppliesToEveryDriverAndEntryAndWritesOneFile) {
  auto infrared = list(kInfrared, "infrared");
  auto optical = list(kOptical, "optical");
  optical->set(settings_key::kEnableTouch, false);
  controller.shouldSelectRow(1);
  controller.Settings();
  controls() = kUnusual;
  controller.SettingsChange();
  controller.SettingsApply();

  ASSERT_EQ(registry.writes.size(), 6U);
  const auto message = registry.writes[0].value;
  const auto& told = *message.get<Dictionary>();
  EXPECT_EQ(told.size(), 9U);
  for (auto [key, value] : told) {
    key[0] = static_cast<char>(std::toupper(key[0]));
    EXPECT_EQ(value, *kUnusualFile.find(key == "Mode" ? "TouchMode" : key)) << key;
  }
  for (const auto& entry : {infrared, optical}) {
    using Write = FakeRegistry::Write;
    EXPECT_THAT(registry.writesTo(handleOf(entry)),
                ElementsAre(Write{handleOf(entry), property::kConfigration, message}));
    EXPECT_THAT(registry.writesTo(hidSystemOf(entry)),
                ElementsAre(Write{hidSystemOf(entry), property::kHidClickTime, 715000000},
                            Write{hidSystemOf(entry), property::kHidClickSpace, Array{16, 16}}));
  }
  EXPECT_TRUE(infrared->boolean(settings_key::kEnableTouch)) << "no setting of the sheet";
  infrared->set(settings_key::kEnableTouch, false);
  for (const auto& entry : {infrared, optical}) {
    for (const auto& [key, value] : kUnusualFile) EXPECT_EQ(*entry->find(key), value) << key;
    EXPECT_EQ(entry->integer(entry_key::kDoubleClickTime), 715);
    EXPECT_EQ(entry->integer(entry_key::kDoubleClickArea), 16);
  }
  EXPECT_EQ(files.files.at("driver.plist"), kUnusualFile);
  EXPECT_EQ(status(), (StatusMessage{"Settings were sent to %n touchscreen(s) and saved.", "", 2}));
}

TEST_F(SettingsOfTheSheet, LeavesTheSystemsDoubleClickAloneWhereThereIsNone) {
  auto entry = list(kInfrared, "infrared");
  entry->remove(entry_key::kHiddevice);
  controller.SaveDriverConfig();
  EXPECT_EQ(registry.writeAttempts, 1) << "the driver instance alone";
  EXPECT_EQ(entry->integer(entry_key::kDoubleClickTime), 500);
}

TEST_F(SettingsOfTheSheet, FindsTheSystemsDoubleClickAnewWhenItsTouchscreenHasLeft) {
  auto staying = list(kInfrared, "staying");
  auto leaving = list(kInfrared, "leaving");
  const auto own = hidSystemOf(staying);
  staying->set(entry_key::kHiddevice, std::int64_t{hidSystemOf(leaving)});  // both hold the last one's
  registry.remove(handleOf(leaving));
  controller.SaveDriverConfig();
  EXPECT_EQ(registry.writesTo(own).size(), 4U) << "a pair for each entry";
  EXPECT_NE(hidSystemOf(staying), own) << "the entry stays as it is";
  EXPECT_EQ(status().text,
            "Settings were sent to %n touchscreen(s) and saved, but %1 did not take them: %2.");
  EXPECT_EQ(status().device, "leaving");
}

TEST_F(SettingsOfTheSheet, SaysWhenTheFileCouldNotBeWritten) {
  auto entry = list(kInfrared, "infrared");
  for (const bool complete : {true, false}) {
    files.writeStatus = complete ? kErrorNotPermitted : kSuccess;
    if (!complete) entry->remove(settings_key::kEnableTouch);
    controller.SaveDriverConfig();
    EXPECT_EQ(status().text,
              "Settings were sent to %n touchscreen(s), but could not be saved for the next start: %2.");
    EXPECT_EQ(status().count, 1);
  }
  EXPECT_THAT(files.files, IsEmpty());
}

TEST_F(SettingsOfTheSheet, KeepsTheMainWindowUnusableWhileItIsUp) {
  list(kInfrared, "infrared");
  auto& i = interface;
  Control* const mainControls[] = {&i.deviceTableView, &i.btnCalibrate, &i.btnSettings,
                                   &i.btnExit,         &i.btnAbout,     &i.btnReset};
  for (const auto close : {&MyController::SettingsOk, &MyController::SettingsCancel}) {
    i.btnRebootDevcie.enabled = true;
    controller.Settings();
    EXPECT_EQ(sheets.open, &i.SettingsWindow);
    EXPECT_EQ(sheets.parent, &i.KeyWindow);
    EXPECT_FALSE(i.btnRebootDevcie.enabled);
    for (auto* control : mainControls) EXPECT_FALSE(control->isEnabled());

    i.SettingsWindow.isOut = false;
    (controller.*close)();
    EXPECT_EQ(sheets.open, nullptr);
    EXPECT_TRUE(i.SettingsWindow.isOut);
    for (auto* control : mainControls) EXPECT_TRUE(control->isEnabled());
  }
}

TEST_F(SettingsOfTheSheet, ForgetsWhatWasNotAppliedOnlyWhenItIsShownAgain) {
  auto entry = list(kInfrared, "infrared");
  controller.Settings();
  interface.singleClickArea.value = 8;
  controller.SettingsCancel();
  EXPECT_EQ(interface.singleClickArea.value, 8);
  constexpr std::string_view kUnapplied = "Settings were closed without applying changes.";
  EXPECT_EQ(status(), StatusMessage{kUnapplied});
  EXPECT_EQ(entry->integer(settings_key::kClickRange), 0);
  for (const bool changedSince : {false, true}) {
    controller.Settings();
    controller.SettingsApply();
    if (changedSince) interface.singleClickArea.value = 8;
    controller.SettingsCancel();
    EXPECT_EQ(status().text == kUnapplied, changedSince);
  }
  controller.Settings();
  EXPECT_EQ(controls(), kDefaults);
}

TEST_F(SettingsOfTheSheet, OffersTheDefaults) {
  auto entry = listUnusual();
  interface.enableDoubleClick.on = true;
  controller.Settings();
  controller.SettingsDefault();
  EXPECT_EQ(controls(), kDefaults);
  EXPECT_TRUE(interface.btnApply.enabled);
  EXPECT_TRUE(interface.rightClickTime.enabled);
  EXPECT_TRUE(interface.touchSensitivityTime.enabled);
  EXPECT_TRUE(interface.enableDoubleClick.on);
  EXPECT_EQ(entry->integer(settings_key::kClickRange), 11) << "nothing is stored before Apply or OK";
}

TEST_F(SettingsOfTheSheet, NeedsASelectionLikeEveryDeviceCommand) {
  const std::pair<void (MyController::*)(), bool> actions[] = {
      {&MyController::Settings, true},          {&MyController::SettingsOk, true},
      {&MyController::SettingsApply, true},     {&MyController::Reset, true},
      {&MyController::EnableTouch, true},       {&MyController::Calibration, true},
      {&MyController::RegionCalibration, true}, {&MyController::UpdateSettings, false},
      {&MyController::SettingsChange, false},   {&MyController::SettingsDefault, false},
  };
  for (const auto& [action, saysSo] : actions) {
    statusLine.messages.clear();
    (controller.*action)();
    EXPECT_EQ(statusLine.messages, std::vector<StatusMessage>(saysSo, {"No touchscreen is selected."}));
    EXPECT_EQ(sheets.open, nullptr);
    EXPECT_TRUE(controller.state().bEnableItems);
  }
  EXPECT_THAT(screen.windows, IsEmpty());
  EXPECT_EQ(registry.writeAttempts + files.writeAttempts + interface.deviceTableView.reloads, 0);
}

}  // namespace
}  // namespace touchpanel::testing
