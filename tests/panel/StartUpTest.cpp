#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "PanelRig.h"

namespace touchpanel::testing {
namespace {

struct StartUpTest : PanelRig {
  /// Reads the next alert, calls `whileUp` and presses the alert's button.
  void expectAlert(const char* text, std::function<void()> whileUp) {
    alert.callOnTimeout([this, text, whileUp = std::move(whileUp)] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      alert.stop();
      EXPECT_TRUE(QTest::qWaitForWindowExposed(box));
      EXPECT_EQ(box->windowTitle() + ": " + box->text(), text);
      whileUp();
      user.click(*box->buttons().at(0));
      if (!QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; })) std::abort();
    });
    alert.start(1);
  }
  static QString startUpText() {
    for (const QWidget* window : QApplication::topLevelWidgets())
      if (dynamic_cast<const StartUpWindow*>(window) != nullptr && window->isVisible())
        return window->findChildren<QLabel*>().last()->text();
    return {};
  }
  QTimer alert;
};

TEST(TranslatedWaitNotice, ShowsTheWaitOverTheLastOutcomeAndThenTheOutcomeAgain) {
  QLabel label;
  QWidget window;
  QPushButton repeat(&window);
  StatusArea area(label, repeat);
  StartUpWindow startUp;
  QtCursor cursor;
  for (int twice = 0; twice < 2; ++twice) cursor.hide();
  TranslatedStatusLine status(area);
  TranslatedWaitNotice notice(cursor, area, startUp);
  notice.waitingFor({"The touchscreen cannot be opened yet: %2. Trying again (attempt %n of 50)...", 7,
                     "it does not answer"});
  EXPECT_EQ(PanelRig::cursorShape(), Qt::WaitCursor);
  status.show({.text = "Touch was enabled on %1.", .device = "TS-1", .canRepeat = true});
  EXPECT_TRUE(repeat.isHidden());
  EXPECT_TRUE(label.text().contains("yet: it does not answer. Trying again (attempt 7 of 50)"))
      << "the wait goes on";
  notice.done();
  EXPECT_EQ(label.text(), "Touch was enabled on TS-1.");
  EXPECT_FALSE(repeat.isHidden());
  EXPECT_EQ(PanelRig::cursorShape(), Qt::BlankCursor);
  cursor.show();
  EXPECT_EQ(PanelRig::cursorShape(), Qt::ArrowCursor) << "one show undoes every hide";
}

TEST_F(StartUpTest, EndsWithoutAWindowWhenThereIsNoDriver) {
  expectAlert("Warning: Not found touch device.", [&] { EXPECT_FALSE(panel.mainWindow().isVisible()); });
  EXPECT_EQ(panel.run(), 0);
  EXPECT_FALSE(alert.isActive()) << "the alert was read";
}

TEST_F(StartUpTest, SaysWhatItWaitsForWhileTouchscreensAreReadAndEndsWithTheMainWindow) {
  std::set<QString> told;
  clock.onSleep = [&](std::chrono::milliseconds) {
    EXPECT_FALSE(panel.mainWindow().isVisible());
    told.insert(startUpText());
  };
  startWithAll();
  EXPECT_GE(told.size(), 2U);
  EXPECT_TRUE(told.contains("Reading the touchscreen's parameters..."));
  EXPECT_TRUE(startUpText().isEmpty()) << "it has gone";
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
  panel.mainWindow().close();
  EXPECT_TRUE(panel.application().isEnding());
  EXPECT_EQ(panel.application().run(), 0);
}

TEST_F(StartUpTest, ShowsAnAlertInFrontOfARunningCalibrationAndGivesTheKeyboardBack) {
  machine.plugIn(touchscreen(Infrared));
  start();
  selectRow(Infrared);
  startCalibration(kFourTargets);
  touchscreen(Optical).firmware().setFault({firmware::Fault::Stalls});
  expectAlert("Error: To get the device parameters failed, please try again.",
              [] { EXPECT_EQ(cursorShape(), Qt::ArrowCursor); });
  machine.plugIn(touchscreen(Optical));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !alert.isActive(); }));
  ASSERT_NE(run(), nullptr);
  EXPECT_TRUE(QTest::qWaitForWindowActive(ViewSurface::shown()));
  EXPECT_EQ(cursorShape(), Qt::BlankCursor);
  user.type("Escape");
  expectClosed();
}

}  // namespace
}  // namespace touchpanel::testing
