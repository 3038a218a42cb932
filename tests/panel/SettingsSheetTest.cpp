#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>

#include "PanelRig.h"

namespace touchpanel::testing {
namespace {

struct SettingsSheetTest : StartedPanelRig {
  void open(Kind kind) {
    selectRow(kind);
    user.click(*panel.mainWindow().ui().btnSettings);
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.settingsSheet().isVisible(); }));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.settingsSheet()));
    EXPECT_EQ(panel.settingsSheet().windowModality(), Qt::WindowModal);
  }
  template <typename Widget = QWidget>
  Widget& widget(const char* name) {
    return *panel.settingsSheet().findChild<Widget*>(name);
  }
  void click(const char* name) {
    auto& target = widget(name);
    // A radio button is wider than what it answers to.
    user.click(target.mapToGlobal(QPoint(12, target.height() / 2)));
    QCoreApplication::processEvents();
  }
  void showPage(int page) {
    auto& bar = *widget<QTabWidget>("settingsPages").tabBar();
    user.click(bar.mapToGlobal(bar.tabRect(page).center()));
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget<QTabWidget>("settingsPages").currentIndex() == page; }));
  }
  bool closes() {
    return QTest::qWaitFor([&] { return !panel.settingsSheet().isVisible(); });
  }
};

TEST_F(SettingsSheetTest, AppliesWhatTheUserGaveEachControlToEveryTouchscreenAndToTheFile) {
  open(Optical);
  EXPECT_FALSE(widget("btnApply").isEnabled());
  const auto& main = panel.mainWindow().ui();
  for (const bool isUsable : {main.btnCalibrate->isEnabled(), main.actionCalibrate->isEnabled(),
                              main.btnRegionCalibrate->isEnabled()})
    EXPECT_FALSE(isUsable);
  const std::pair<int, const char*> choices[] = {
      {1, "enableRightClick"}, {3, "enableTouchSensitivity"}, {4, "calibMode1"}, {0, "touchModeDrawing1"}};
  for (const auto& [page, control] : choices) {
    showPage(page);
    click(control);
  }
  int steps = 0;
  for (const char* field :
       {"singleClickArea", "smoothness", "rightClickTime", "rightClickArea", "doubleClickTime",
        "doubleClickArea", "touchSensitivityTime", "touchSensitivityArea"}) {
    // One step by the slider, the rest by the box.
    auto& slider = widget<IntegerField>(field).slider();
    slider.triggerAction(QSlider::SliderSingleStepAdd);
    auto& spinBox = widget<IntegerField>(field).spinBox();
    spinBox.stepBy(steps++);
    EXPECT_EQ(slider.value(), spinBox.value()) << field;
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return widget("btnApply").isEnabled(); }));
  click("btnApply");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !widget("btnApply").isEnabled(); }));
  EXPECT_EQ(files.files.at(ConfigPaths::in("/etc/panel").driverConfig),
            (Dictionary{{"TouchMode", 1},
                        {"EnableTouch", true},
                        {"ClickRange", 1},
                        {"Smoothness", 3},
                        {"CalibrateMode", 25},
                        {"CalibrateType", 0},
                        {"EnableRightClick", false},
                        {"RightClickTime", 1300},
                        {"RightClickArea", 9},
                        {"EnableTouchSensitivity", false},
                        {"TouchSensitivityTime", 170},
                        {"TouchSensitivityArea", 13}}));
  EXPECT_EQ(selected().integer(entry_key::kDoubleClickTime), 750);
  EXPECT_EQ(selected().integer(entry_key::kDoubleClickArea), 11);
  for (const Kind kind : {Infrared, Optical, ConfigurationOnly})
    EXPECT_EQ(touchscreen(kind)
                  .driver()
                  .state()
                  .dictionary(property::kConfigration)
                  ->integer(configration_key::kMode),
              1);
  click("btnOk");
  EXPECT_TRUE(closes());
  EXPECT_TRUE(main.btnCalibrate->isEnabled());
}

TEST_F(SettingsSheetTest, SaysWhyAControlCannotBeUsed) {
  const std::pair<const char*, bool> controls[] = {{"smoothness", true},
                                                   {"enableTouchSensitivity", true},
                                                   {"touchSensitivityArea", true},
                                                   {"enableRightClick", false},
                                                   {"rightClickTime", false}};
  for (const Kind kind : {Infrared, Optical}) {
    open(kind);
    click("touchMode0");
    for (const auto& [name, isForOptical] : controls) {
      const auto& control = widget(name);
      const bool isEnabled = isForOptical && kind == Optical;
      EXPECT_EQ(control.isEnabled(), isEnabled) << name;
      EXPECT_EQ(control.toolTip().isEmpty(), isEnabled) << name;
      EXPECT_EQ(control.accessibleDescription(), control.toolTip()) << name;
      const auto* label = buddyLabelOf(control);
      EXPECT_TRUE(label == nullptr || label->isEnabled() == isEnabled) << name;
    }
    user.type("Escape");
    ASSERT_TRUE(closes());
  }
}

TEST_F(SettingsSheetTest, KeepsStoredValuesThatItsControlsCannotShow) {
  selectRow(Infrared);
  for (const int stored : {1, 7, -1}) {
    panel.controller().state().currentDict->set(settings_key::kTouchMode, stored);
    panel.controller().state().currentDict->set(settings_key::kRightClickTime, 999999 * stored);
    open(Infrared);
    for (const int mode : {0, 1, 2, 3})
      EXPECT_EQ(widget<QRadioButton>(qPrintable(QStringLiteral("touchMode%1").arg(mode))).isChecked(),
                mode == stored);
    const auto& time = widget<IntegerField>("rightClickTime").spinBox();
    EXPECT_EQ(time.value(), stored > 0 ? time.maximum() : time.minimum());
    click("btnOk");
    ASSERT_TRUE(closes());
    EXPECT_EQ(selected().integer(settings_key::kTouchMode), stored);
    EXPECT_EQ(selected().integer(settings_key::kRightClickTime), 999999 * stored);
  }
}

TEST_F(SettingsSheetTest, ChangesNothingWhenItIsLeft) {
  const std::function<void()> ways[] = {[&] { click("btnCancel"); }, [&] { user.type("Escape"); },
                                        [&] { panel.settingsSheet().close(); }};
  for (const auto& leave : ways) {
    open(Infrared);
    click("touchMode3");
    leave();
    ASSERT_TRUE(closes());
    EXPECT_TRUE(status().contains("without applying")) << status().toStdString();
    EXPECT_EQ(selected().integer(settings_key::kTouchMode), 2);
    EXPECT_TRUE(panel.mainWindow().ui().btnCalibrate->isEnabled());
  }
}

}  // namespace
}  // namespace touchpanel::testing
