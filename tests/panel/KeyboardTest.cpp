#include "PanelRig.h"

namespace touchpanel::testing {
namespace {

struct KeyboardTest : StartedPanelRig {
  static bool isActive(const QWidget& window) {
    return QTest::qWaitFor([&] { return window.isVisible() && window.isActiveWindow(); });
  }
  QWidget& settings() { return panel.settingsSheet(); }
};

/// From start to a finished calibration and a changed setting without the mouse; fingers only touch targets.
TEST_F(KeyboardTest, ReachesEveryCommandChoosesATouchscreenChangesASettingAndCalibrates) {
  auto& main = panel.mainWindow().ui();
  ASSERT_TRUE(isActive(panel.mainWindow()));
  main.btnEnableTouch->setFocus();
  user.type("space");
  EXPECT_TRUE(QTest::qWaitFor([&] { return main.btnEnableTouch->text() == "Enable Touch"; }));
  EXPECT_EQ(main.actionEnableTouch->text(), "Enable Touch");
  user.type("space");
  EXPECT_TRUE(QTest::qWaitFor([&] { return main.btnEnableTouch->text() == "Disable Touch"; }));
  user.type("F1");
  EXPECT_TRUE(isActive(panel.aboutSheet()));
  user.type("Escape");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !panel.aboutSheet().isVisible(); }));
  ASSERT_TRUE(isActive(panel.mainWindow()));

  main.deviceTableView->setFocus();
  user.type("Down");
  ASSERT_TRUE(QTest::qWaitFor([&] { return selected().integer(entry_key::kProductID) == kProductOptical; }));

  user.type("ctrl+comma");
  ASSERT_TRUE(isActive(settings()));
  user.type("alt+c");
  auto& pages = *settings().findChild<QTabWidget*>();
  ASSERT_TRUE(QTest::qWaitFor([&] { return pages.currentIndex() == 4; }));
  user.type("alt+2");
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return settings().findChild<QAbstractButton*>("calibMode1")->isChecked(); }));
  user.type("alt+a");
  ASSERT_TRUE(QTest::qWaitFor([&] { return selected().integer(settings_key::kCalibrateMode) == 25; }));
  user.type("Return");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !settings().isVisible(); }));
  ASSERT_TRUE(isActive(panel.mainWindow()));
  EXPECT_TRUE(main.deviceTableView->hasFocus()) << "where it was before the sheet";

  user.type("ctrl+k");
  ASSERT_TRUE(QTest::qWaitFor([] { return run() != nullptr && ViewSurface::shown()->isUpToDate(); }));
  collect(Optical);
  EXPECT_EQ(run()->touches().iTouchIndex, 25);
  user.type("Return");
  expectClosed();
  EXPECT_EQ(selected().text(entry_key::kCalibrateStatus), "YES");
  EXPECT_EQ(touchscreen(Optical).firmware().stored().deviceConfig.CalibrateStatus, 1);

  ASSERT_TRUE(isActive(panel.mainWindow()));
  user.type("ctrl+shift+k");
  ASSERT_TRUE(QTest::qWaitFor([] { return run() != nullptr && ViewSurface::shown()->isUpToDate(); }));
  user.type("Escape");
  expectClosed();
  ASSERT_TRUE(isActive(panel.mainWindow()));
  user.type("ctrl+q");
  EXPECT_TRUE(QTest::qWaitFor([&] { return panel.application().isEnding(); }));
}

}  // namespace
}  // namespace touchpanel::testing
