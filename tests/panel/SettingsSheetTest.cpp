#include <QSlider>
#include <QSpinBox>

#include "PanelRig.h"

namespace touchpanel::testing {
namespace {

struct SettingsSheetTest : PanelRig {
  void SetUp() override {
    plugInAll();
    start();
  }
  void open(Kind kind) {
    selectRow(kind);
    user.click(*panel.mainWindow().ui().btnSettings);
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.settingsSheet().isVisible(); }));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.settingsSheet()));
  }
  template <typename Widget = QWidget>
  Widget& widget(const char* name) {
    auto* found = panel.settingsSheet().findChild<Widget*>(name);
    if (found == nullptr) throw std::logic_error(name);
    return *found;
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

TEST_F(SettingsSheetTest, AppliesWhatTheMouseChoseToEveryTouchscreenAndToTheFile) {
  open(Infrared);
  EXPECT_FALSE(widget("btnApply").isEnabled());
  EXPECT_FALSE(panel.mainWindow().ui().btnCalibrate->isEnabled());
  click("touchMode1");
  EXPECT_TRUE(QTest::qWaitFor([&] { return widget("btnApply").isEnabled(); }));
  click("btnApply");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !widget("btnApply").isEnabled(); }));
  for (const Kind kind : {Infrared, Optical, ConfigurationOnly})
    EXPECT_EQ(published(kind, property::kConfigration).integer(configration_key::kMode), 1);
  EXPECT_EQ(files.files.at(ConfigPaths::in("/etc/panel").driverConfig).integer(settings_key::kTouchMode), 1);
  click("btnOk");
  EXPECT_TRUE(closes());
  EXPECT_TRUE(panel.mainWindow().ui().btnCalibrate->isEnabled());
}

TEST_F(SettingsSheetTest, ChoosesATouchModeByItsDrawing) {
  open(Infrared);
  click("touchModeDrawing3");
  EXPECT_TRUE(QTest::qWaitFor([&] { return widget<QAbstractButton>("touchMode3").isChecked(); }));
  EXPECT_TRUE(widget("btnApply").isEnabled());
}

TEST_F(SettingsSheetTest, EnablesWhatTheModeAndTheDeviceHaveAndSaysWhyForTheRest) {
  struct Case {
    Kind kind;
    const char* mode;
    const char* control;
    bool isEnabled;
  };
  const Case cases[] = {
      {Infrared, "touchMode0", "enableRightClick", false},
      {Infrared, "touchMode1", "rightClickTime", false},
      {Infrared, "touchMode2", "enableRightClick", true},
      {Infrared, "touchMode2", "rightClickArea", true},
      {Infrared, "touchMode2", "smoothness", false},
      {Infrared, "touchMode2", "touchSensitivityTime", false},
      {Optical, "touchMode2", "smoothness", true},
      {Optical, "touchMode0", "enableTouchSensitivity", true},
      {Optical, "touchMode2", "touchSensitivityArea", true},
  };
  for (const auto& [kind, mode, control, isEnabled] : cases) {
    SCOPED_TRACE(std::string(mode) + " " + control);
    open(kind);
    click(mode);
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget(control).isEnabled() == isEnabled; }));
    EXPECT_EQ(widget(control).toolTip().contains("nly") || widget(control).toolTip().contains("Available"),
              !isEnabled)
        << widget(control).toolTip().toStdString();
    user.type("Escape");
    ASSERT_TRUE(closes());
  }
}

TEST_F(SettingsSheetTest, LeavesAStoredValueOutsideItsRangeAsItIsUntilItIsEdited) {
  selectRow(Optical);
  auto& entry = *panel.controller().state().currentDict;
  entry.set(settings_key::kRightClickTime, 60000);
  entry.set(settings_key::kTouchMode, 7);
  entry.set(settings_key::kCalibrateMode, 9);
  panel.controller().UpdateSettings();
  open(Optical);
  EXPECT_EQ(widget<IntegerField>("rightClickTime").spinBox().value(), 5000);
  for (const char* mode : {"touchMode0", "touchMode1", "touchMode2", "touchMode3"})
    EXPECT_FALSE(widget<QAbstractButton>(mode).isChecked()) << mode;
  EXPECT_TRUE(widget<QAbstractButton>("calibMode1").isChecked());
  click("btnOk");
  ASSERT_TRUE(closes());
  EXPECT_EQ(selected().integer(settings_key::kRightClickTime), 60000);
  EXPECT_EQ(selected().integer(settings_key::kTouchMode), 7);
}

TEST_F(SettingsSheetTest, ReloadsWhenTouchscreensComeAndGoWhileItIsOpen) {
  open(ConfigurationOnly);
  machine.unplug(touchscreen(ConfigurationOnly));
  auto& rows = *panel.mainWindow().ui().deviceTableView->model();
  ASSERT_TRUE(QTest::qWaitFor([&] { return rows.rowCount() == 2; }));
  EXPECT_EQ(selected(), *panel.controller().state().deviceListArray.front());
  machine.plugIn(touchscreen(ConfigurationOnly));
  ASSERT_TRUE(QTest::qWaitFor([&] { return rows.rowCount() == 3; }));
  EXPECT_TRUE(panel.settingsSheet().isVisible());
  click("btnOk");
  EXPECT_TRUE(closes());
}

TEST_F(SettingsSheetTest, PutsDefaultsInAndCancelsWithoutUsingThem) {
  open(Infrared);
  click("touchMode0");
  click("btnApply");
  ASSERT_TRUE(QTest::qWaitFor([&] { return selected().integer(settings_key::kTouchMode) == 0; }));
  click("btnDefault");
  EXPECT_TRUE(QTest::qWaitFor([&] { return widget<QAbstractButton>("touchMode2").isChecked(); }));
  EXPECT_TRUE(widget("btnApply").isEnabled());
  click("btnCancel");
  ASSERT_TRUE(closes());
  EXPECT_EQ(selected().integer(settings_key::kTouchMode), 0);
}

}  // namespace
}  // namespace touchpanel::testing
