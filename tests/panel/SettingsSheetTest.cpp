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
    const bool isChoice = target.inherits("QRadioButton") || target.inherits("QCheckBox");
    user.click(isChoice ? target.mapToGlobal(QPoint(12, target.height() / 2))
                        : target.mapToGlobal(target.rect().center()));
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
        "doubleClickArea", "touchSensitivityTime", "touchSensitivityArea"})
    widget<IntegerField>(field).spinBox().stepBy(++steps);
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
    EXPECT_EQ(published(kind, property::kConfigration).integer(configration_key::kMode), 1);
  click("btnOk");
  EXPECT_TRUE(closes());
  EXPECT_TRUE(main.btnCalibrate->isEnabled());
}

TEST_F(SettingsSheetTest, SaysWhyAControlCannotBeUsed) {
  struct Case {
    const char* control;
    bool inInfrared;
    bool inOptical;
  };
  const Case cases[] = {{"singleClickArea", true, true},         {"enableRightClick", false, false},
                        {"rightClickTime", false, false},        {"smoothness", false, true},
                        {"enableTouchSensitivity", false, true}, {"touchSensitivityArea", false, true}};
  for (const Kind kind : {Infrared, Optical}) {
    open(kind);
    click("touchMode0");
    for (const auto& [control, inInfrared, inOptical] : cases) {
      const bool isEnabled = kind == Infrared ? inInfrared : inOptical;
      EXPECT_EQ(widget(control).isEnabled(), isEnabled) << control;
      const auto reason = widget(control).property("disabledReason").toString();
      EXPECT_EQ(widget(control).toolTip(), isEnabled ? QString() : reason) << control;
      EXPECT_TRUE(isEnabled || !reason.isEmpty()) << control;
    }
    user.type("Escape");
    ASSERT_TRUE(closes());
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
