#include <limits>

#include <gmock/gmock.h>

#include "PanelRig.h"
#include "app/SettingsPanel.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int32_t kInfrared = 0x0080;
constexpr std::int32_t kOptical = 0x0C20;
constexpr std::int32_t kConfigurationOnly = 0x0001;

/// No value equals a default or another one of its type.
constexpr SettingsValues kUnusual{.touchMode = 1,
                                  .clickRange = 11,
                                  .smoothness = 12,
                                  .calibrateMode = 25,
                                  .calibrateType = 3,
                                  .enableRightClick = false,
                                  .rightClickTime = 1301,
                                  .rightClickArea = 14,
                                  .doubleClickTime = 715,
                                  .doubleClickArea = 16,
                                  .enableTouchSensitivity = false,
                                  .touchSensitivityTime = 170,
                                  .touchSensitivityArea = 18};

class SettingsSheet : public ::testing::Test, public PanelRig {
 protected:
  /// What a user reads and sees in the sheet.
  SettingsValues shown() const { return SettingsControls(outlets).values(); }
  /// A user changes something: the control has its new value when its action runs.
  template <typename Change>
  void change(Change&& apply) {
    apply(interface);
    panel.SettingsChange();
  }
  int saves() const { return files.writeAttempts; }

  SettingsPanel panel{outlets, ports, state};
};

TEST_F(SettingsSheet, ShowsEverySettingOfTheSelectedDevice) {
  auto entry = list(kOptical, "optical");
  storeSettings(kUnusual, *entry);
  entry->set(settings_key::kEnableTouch, false);
  interface.enableDoubleClick.on = true;
  interface.calibType.enabled = true;

  panel.UpdateSettings();

  EXPECT_EQ(shown(), kUnusual);
  EXPECT_EQ(interface.btnEnableTouch.title, "Enable Touch");
  EXPECT_FALSE(interface.calibType.enabled);
  EXPECT_TRUE(interface.enableDoubleClick.on) << "the double-click box is nobody's business";
  EXPECT_EQ(process.devIntf, &devices.at(entry->integer(entry_key::kDeviceInterface)));
}

TEST_F(SettingsSheet, ReadsNumbersOfEveryTypeThatAFileCanHold) {
  auto entry = list(kOptical, "optical");
  entry->set(settings_key::kClickRange, false);  // the file's own default
  entry->set(settings_key::kSmoothness, std::int64_t{7});
  entry->set(settings_key::kEnableRightClick, std::int32_t{1});
  entry->set(settings_key::kRightClickTime, "soon");

  panel.UpdateSettings();

  EXPECT_EQ(interface.singleClickArea.value, 0);
  EXPECT_EQ(interface.smoothness.value, 7);
  EXPECT_TRUE(interface.enableRightClick.on);
  EXPECT_EQ(interface.rightClickTime.value, 0);
}

TEST_F(SettingsSheet, ShowsDefaultsForWhatAnEntryDoesNotTell) {
  auto entry = list(kInfrared, "infrared");
  entry->remove(entry_key::kDoubleClickTime);
  entry->remove(entry_key::kDoubleClickArea);
  entry->remove(settings_key::kTouchMode);
  entry->remove(settings_key::kEnableTouch);

  panel.Settings();

  EXPECT_EQ(shown(), SettingsValues());
  EXPECT_EQ(interface.btnEnableTouch.title, "Enable Touch");
  change([](auto&) {});
  EXPECT_FALSE(interface.btnApply.enabled) << "a default shown for want of a value is no change";
}

TEST_F(SettingsSheet, KeepsValuesThatNoControlCanShowUntilTheUserChangesThem) {
  auto entry = list(kOptical, "optical");
  entry->set(settings_key::kTouchMode, 17);
  entry->set(settings_key::kRightClickTime, 999999);
  entry->set(settings_key::kSmoothness, -3);
  interface.rightClickTime.maximum = 5000;

  panel.Settings();
  EXPECT_EQ(interface.rightClickTime.shown(), 5000);
  change([](FakeInterface& controls) { controls.smoothness.value = 2; });
  panel.SettingsOk();

  EXPECT_EQ(entry->integer(settings_key::kTouchMode), 17);
  EXPECT_EQ(entry->integer(settings_key::kRightClickTime), 999999);
  EXPECT_EQ(entry->integer(settings_key::kSmoothness), 2);
}

TEST_F(SettingsSheet, KnowsTwoNumbersOfTargets) {
  struct Case {
    std::int32_t stored, row, savedAs;
  };
  for (const auto& c : {Case{4, 0, 4}, Case{25, 1, 25}, Case{9, 1, 25}, Case{0, 1, 25}, Case{-4, 1, 25}}) {
    PanelRig rig;
    auto entry = rig.list(kInfrared, "infrared");
    entry->set(settings_key::kCalibrateMode, c.stored);
    SettingsPanel sheet(rig.outlets, rig.ports, rig.state);
    sheet.Settings();
    EXPECT_EQ(rig.interface.calibMode.row, c.row) << c.stored;
    sheet.SettingsOk();
    EXPECT_EQ(entry->integer(settings_key::kCalibrateMode), c.savedAs) << c.stored;
  }
}

TEST_F(SettingsSheet, EnablesWhatTheTouchModeAndTheKindOfDeviceAllow) {
  enum State { Off, On, AsItWas };
  struct Case {
    std::int32_t product, mode;
    bool rightClickOn, filterOn;
    State rightClick, rightClickDetails, filters, filterDetails;
  };
  const Case cases[] = {
      {kInfrared, 0, true, true, Off, Off, Off, Off},
      {kInfrared, 1, true, true, Off, Off, Off, Off},
      {kInfrared, 2, true, true, On, On, Off, Off},
      {kInfrared, 2, false, true, On, Off, Off, Off},
      {kInfrared, 3, true, true, AsItWas, AsItWas, Off, Off},
      {kConfigurationOnly, 2, true, true, On, On, Off, Off},
      {0x1234, 2, true, true, On, On, Off, Off},
      {kOptical, 0, true, true, Off, Off, On, On},
      {kOptical, 1, false, false, Off, Off, On, Off},
      {kOptical, 2, true, false, On, On, On, Off},
      {kOptical, 3, true, true, AsItWas, AsItWas, On, On},
      {kOptical, -1, true, true, AsItWas, AsItWas, On, On},
  };
  for (const auto& c : cases) {
    for (const bool before : {false, true}) {
      SCOPED_TRACE(::testing::Message()
                   << "product " << c.product << " mode " << c.mode << " before " << before);
      PanelRig rig;
      rig.list(c.product, "any");
      auto& i = rig.interface;
      Control* const details[] = {&i.rightClickTime, &i.rightClickArea};
      Control* const filters[] = {&i.smoothness, &i.enableTouchSensitivity};
      Control* const filterDetails[] = {&i.touchSensitivityTime, &i.touchSensitivityArea};
      i.enableRightClick.enabled = before;
      for (auto* control : details) control->setEnabled(before);
      for (auto* control : filters) control->setEnabled(before);
      for (auto* control : filterDetails) control->setEnabled(before);
      i.enableRightClick.on = c.rightClickOn;
      i.enableTouchSensitivity.on = c.filterOn;

      SettingsPanel(rig.outlets, rig.ports, rig.state).RefreshTouchMode(c.mode);

      const auto expected = [&](State wanted) { return wanted == AsItWas ? before : wanted == On; };
      EXPECT_EQ(i.enableRightClick.enabled, expected(c.rightClick));
      for (auto* control : details) EXPECT_EQ(control->isEnabled(), expected(c.rightClickDetails));
      for (auto* control : filters) EXPECT_EQ(control->isEnabled(), expected(c.filters));
      for (auto* control : filterDetails) EXPECT_EQ(control->isEnabled(), expected(c.filterDetails));
    }
  }
}

TEST_F(SettingsSheet, FollowsTheTouchModeThatIsBeingChosen) {
  list(kInfrared, "infrared");
  panel.Settings();
  change([](FakeInterface& i) { i.touchMode.row = 0; });
  EXPECT_FALSE(interface.enableRightClick.enabled);
  change([](FakeInterface& i) { i.touchMode.row = 2; });
  EXPECT_TRUE(interface.rightClickTime.enabled);
  change([](FakeInterface& i) { i.enableRightClick.on = false; });
  EXPECT_FALSE(interface.rightClickTime.enabled);
}

TEST_F(SettingsSheet, LooksAtTheOldBoxWhenItShowsAnotherDevice) {
  // Which details can be used is decided before the box gets its new state; the next change puts it right.
  auto entry = list(kInfrared, "infrared");
  entry->set(settings_key::kEnableRightClick, false);
  interface.enableRightClick.on = true;
  panel.UpdateSettings();
  EXPECT_FALSE(interface.enableRightClick.on);
  EXPECT_TRUE(interface.rightClickTime.enabled);
  panel.SettingsChange();
  EXPECT_FALSE(interface.rightClickTime.enabled);
}

TEST_F(SettingsSheet, OffersApplyForADifferenceInAnyControl) {
  struct Case {
    const char* name;
    void (*change)(FakeInterface&);
  };
  const Case cases[] = {
      {"touchMode", [](FakeInterface& i) { i.touchMode.row = 0; }},
      {"singleClickArea", [](FakeInterface& i) { ++i.singleClickArea.value; }},
      {"smoothness", [](FakeInterface& i) { ++i.smoothness.value; }},
      {"calibMode", [](FakeInterface& i) { i.calibMode.row = 1; }},
      {"calibType", [](FakeInterface& i) { i.calibType.row = 1; }},
      {"enableRightClick", [](FakeInterface& i) { i.enableRightClick.on = false; }},
      {"rightClickTime", [](FakeInterface& i) { ++i.rightClickTime.value; }},
      {"rightClickArea", [](FakeInterface& i) { ++i.rightClickArea.value; }},
      {"doubleClickTime", [](FakeInterface& i) { ++i.doubleClickTime.value; }},
      {"doubleClickArea", [](FakeInterface& i) { ++i.doubleClickArea.value; }},
      {"enableTouchSensitivity", [](FakeInterface& i) { i.enableTouchSensitivity.on = false; }},
      {"touchSensitivityTime", [](FakeInterface& i) { ++i.touchSensitivityTime.value; }},
      {"touchSensitivityArea", [](FakeInterface& i) { ++i.touchSensitivityArea.value; }},
  };
  list(kOptical, "optical");
  for (const auto& c : cases) {
    panel.Settings();
    EXPECT_FALSE(interface.btnApply.enabled) << c.name;
    state.bSaveSettings = true;
    change(c.change);
    EXPECT_TRUE(interface.btnApply.enabled) << c.name;
    EXPECT_FALSE(state.bSaveSettings) << c.name;

    state.bSaveSettings = true;
    panel.UpdateSettings();
    panel.SettingsChange();
    EXPECT_FALSE(interface.btnApply.enabled) << c.name << " back again";
    EXPECT_TRUE(state.bSaveSettings) << c.name << ": no difference leaves the flag";
    panel.SettingsCancel();
  }
}

TEST_F(SettingsSheet, IgnoresTheDoubleClickBox) {
  list(kInfrared, "infrared");
  panel.Settings();
  change([](FakeInterface& i) { i.enableDoubleClick.on = !i.enableDoubleClick.on; });
  EXPECT_FALSE(interface.btnApply.enabled);
}

TEST_F(SettingsSheet, SavesAsOftenAsTheButtonsSay) {
  enum Step { Open, Change, Back, Default, Apply, Ok, Cancel };
  struct Case {
    std::vector<Step> steps;
    int saves;
  };
  const Case cases[] = {
      {{Open, Ok}, 1},
      {{Open, Cancel}, 0},
      {{Open, Change, Cancel}, 0},
      {{Open, Change, Ok}, 1},
      {{Open, Apply, Ok}, 1},
      {{Open, Change, Apply, Cancel}, 1},
      {{Open, Change, Apply, Ok}, 1},
      {{Open, Change, Apply, Change, Ok}, 2},
      {{Open, Apply, Change, Back, Ok}, 2},
      {{Open, Change, Apply, Apply, Ok}, 2},
      {{Open, Change, Apply, Default, Ok}, 2},
      {{Open, Apply, Default, Ok}, 1},  // the defaults are what is stored
      {{Open, Apply, Ok, Open, Ok}, 2},
      {{Open, Apply, Cancel, Open, Cancel}, 1},
  };
  for (std::size_t number = 0; number < std::size(cases); ++number) {
    PanelRig rig;
    rig.list(kInfrared, "infrared");
    SettingsPanel sheet(rig.outlets, rig.ports, rig.state);
    for (const auto step : cases[number].steps) {
      switch (step) {
        case Open:
          sheet.Settings();
          break;
        case Change:
          ++rig.interface.singleClickArea.value;
          sheet.SettingsChange();
          break;
        case Back:
          --rig.interface.singleClickArea.value;
          sheet.SettingsChange();
          break;
        case Default:
          sheet.SettingsDefault();
          break;
        case Apply:
          sheet.SettingsApply();
          EXPECT_FALSE(rig.interface.btnApply.enabled);
          break;
        case Ok:
          sheet.SettingsOk();
          break;
        case Cancel:
          sheet.SettingsCancel();
          break;
      }
    }
    EXPECT_EQ(rig.files.writeAttempts, cases[number].saves) << "case " << number;
    EXPECT_EQ(rig.registry.writes.size(), 3U * static_cast<unsigned>(cases[number].saves))
        << "case " << number;
  }
}

TEST_F(SettingsSheet, TellsEveryDriverStoresInEveryEntryAndWritesOneFile) {
  auto infrared = list(kInfrared, "infrared");
  auto optical = list(kOptical, "optical");
  optical->set(settings_key::kEnableTouch, false);
  state.currentDict = optical;
  panel.Settings();
  change([&](FakeInterface&) { SettingsControls(outlets).show(kUnusual); });
  panel.SettingsApply();

  const Dictionary message{{configration_key::kMode, 1},
                           {configration_key::kClickRange, 11},
                           {configration_key::kEnableRightClick, false},
                           {configration_key::kRightClickTime, 1301},
                           {configration_key::kRightClickArea, 14},
                           {configration_key::kEnableTouchSensitivity, false},
                           {configration_key::kTouchSensitivityTime, 170},
                           {configration_key::kTouchSensitivityArea, 18},
                           {configration_key::kSmoothness, 12}};
  using Write = FakeRegistry::Write;
  EXPECT_THAT(registry.writes,
              ElementsAre(Write{handleOf(infrared), property::kConfigration, message},
                          Write{hidSystemOf(infrared), property::kHidClickTime, 715000000},
                          Write{hidSystemOf(infrared), property::kHidClickSpace, Array{16, 16}},
                          Write{handleOf(optical), property::kConfigration, message},
                          Write{hidSystemOf(optical), property::kHidClickTime, 715000000},
                          Write{hidSystemOf(optical), property::kHidClickSpace, Array{16, 16}}));
  EXPECT_EQ(settingsOf(*infrared), kUnusual);
  EXPECT_EQ(settingsOf(*optical), kUnusual);
  EXPECT_NE(infrared->find(settings_key::kClickRange)->get<std::int32_t>(), nullptr);
  EXPECT_EQ(files.files.at("driver.plist"), (Dictionary{{settings_key::kTouchMode, 1},
                                                        {settings_key::kEnableTouch, false},
                                                        {settings_key::kClickRange, 11},
                                                        {settings_key::kSmoothness, 12},
                                                        {settings_key::kCalibrateMode, 25},
                                                        {settings_key::kCalibrateType, 3},
                                                        {settings_key::kEnableRightClick, false},
                                                        {settings_key::kRightClickTime, 1301},
                                                        {settings_key::kRightClickArea, 14},
                                                        {settings_key::kEnableTouchSensitivity, false},
                                                        {settings_key::kTouchSensitivityTime, 170},
                                                        {settings_key::kTouchSensitivityArea, 18}}));
  EXPECT_EQ(statusLine.messages.back(), (StatusMessage{StatusText::SettingsSaved, "", 2}));
}

TEST_F(SettingsSheet, LeavesTheSystemsDoubleClickAloneWhereThereIsNone) {
  auto entry = list(kInfrared, "infrared");
  entry->remove(entry_key::kHiddevice);
  panel.Settings();
  panel.SettingsOk();
  EXPECT_EQ(registry.writes.size(), 1U);
  EXPECT_EQ(entry->integer(entry_key::kDoubleClickTime), 500);
}

TEST_F(SettingsSheet, SaysWhenTheFileCouldNotBeWritten) {
  auto entry = list(kInfrared, "infrared");
  for (const bool complete : {true, false}) {
    files.writable = !complete;
    if (!complete) entry->remove(settings_key::kEnableTouch);
    panel.SaveDriverConfig();
    EXPECT_EQ(statusLine.messages.back(), (StatusMessage{StatusText::SettingsNotSaved, "", 1}));
  }
  EXPECT_THAT(files.files, IsEmpty());
}

TEST_F(SettingsSheet, AppliesToTheOthersWhenOneDriverInstanceIsGone) {
  auto gone = list(kInfrared, "gone");
  auto staying = list(kInfrared, "staying");
  registry.remove(handleOf(gone));
  interface.singleClickArea.value = 9;
  panel.SaveDriverConfig();
  EXPECT_EQ(registry.writesTo(handleOf(staying)).size(), 1U);
  EXPECT_EQ(files.writeAttempts, 1);
}

TEST_F(SettingsSheet, KeepsTheMainWindowUnusableWhileItIsUp) {
  list(kInfrared, "infrared");
  Control* const mainControls[] = {&interface.deviceTableView, &interface.btnCalibrate,
                                   &interface.btnSettings,     &interface.btnExit,
                                   &interface.btnAbout,        &interface.btnReset};
  for (const bool accept : {true, false}) {
    interface.btnRebootDevcie.enabled = true;
    panel.Settings();
    EXPECT_EQ(sheets.open, &interface.SettingsWindow);
    EXPECT_EQ(sheets.parent, &interface.KeyWindow);
    EXPECT_FALSE(interface.btnRebootDevcie.enabled);
    for (auto* control : mainControls) EXPECT_FALSE(control->isEnabled());

    interface.SettingsWindow.isOut = false;
    accept ? panel.SettingsOk() : panel.SettingsCancel();
    EXPECT_EQ(sheets.open, nullptr);
    EXPECT_TRUE(interface.SettingsWindow.isOut);
    EXPECT_TRUE(state.bEnableItems);
    for (auto* control : mainControls) EXPECT_TRUE(control->isEnabled());
  }
}

TEST_F(SettingsSheet, ForgetsWhatWasNotAppliedOnlyWhenItIsShownAgain) {
  auto entry = list(kInfrared, "infrared");
  panel.Settings();
  change([](FakeInterface& i) { i.singleClickArea.value = 8; });
  panel.SettingsCancel();
  EXPECT_EQ(interface.singleClickArea.value, 8);
  EXPECT_EQ(statusLine.messages.back(), StatusMessage{StatusText::SettingsCancelled});
  panel.Settings();
  EXPECT_EQ(interface.singleClickArea.value, 0);
  EXPECT_EQ(settingsOf(*entry), SettingsValues());
}

TEST_F(SettingsSheet, OffersTheDefaults) {
  auto entry = list(kOptical, "optical");
  storeSettings(kUnusual, *entry);
  interface.enableDoubleClick.on = true;
  panel.Settings();
  panel.SettingsDefault();
  EXPECT_EQ(shown(), (SettingsValues{.touchMode = 2,
                                     .clickRange = 0,
                                     .smoothness = 1,
                                     .calibrateMode = 4,
                                     .calibrateType = 0,
                                     .enableRightClick = true,
                                     .rightClickTime = 1000,
                                     .rightClickArea = 5,
                                     .doubleClickTime = 500,
                                     .doubleClickArea = 5,
                                     .enableTouchSensitivity = true,
                                     .touchSensitivityTime = 100,
                                     .touchSensitivityArea = 5}));
  EXPECT_TRUE(interface.btnApply.enabled);
  EXPECT_TRUE(interface.rightClickTime.enabled);
  EXPECT_TRUE(interface.touchSensitivityTime.enabled);
  EXPECT_TRUE(interface.enableDoubleClick.on);
  EXPECT_EQ(settingsOf(*entry), kUnusual) << "nothing is stored before Apply or OK";
}

TEST_F(SettingsSheet, IsNotOpenedForNothing) {
  panel.Settings();
  panel.UpdateSettings();
  panel.SettingsChange();
  panel.SettingsDefault();
  panel.SettingsApply();
  panel.SettingsOk();
  panel.SettingsCancel();
  EXPECT_EQ(sheets.begun, 0);
  EXPECT_TRUE(state.bEnableItems);
  EXPECT_THAT(registry.writes, IsEmpty());
  EXPECT_EQ(files.writeAttempts, 0);
  EXPECT_EQ(statusLine.messages.front(), StatusMessage{StatusText::NoDeviceSelected});
}

}  // namespace
}  // namespace touchpanel::testing
