#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "PanelRig.h"

namespace touchpanel::testing {
namespace {

/// The user in front of an alert: reads it and presses its button.
class AlertReader final : public QObject {
 public:
  explicit AlertReader(UserInput& user) : user_(user) { qApp->installEventFilter(this); }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    auto* box = qobject_cast<QMessageBox*>(receiver);
    if (box != nullptr && event->type() == QEvent::Show)
      QMetaObject::invokeMethod(
          box, [this, box] { answer(*box); }, Qt::QueuedConnection);
    return false;
  }
  QStringList said;
  std::function<void()> whileUp;

 private:
  void answer(QMessageBox& box) {
    const QPointer<QMessageBox> shown(&box);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&box));
    said += box.windowTitle() + ": " + box.text();
    whileUp();
    user_.click(*box.buttons().at(0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.isNull() || !shown->isVisible(); }));
    if (shown) shown->done(0);  // else the test would hang
  }
  UserInput& user_;
};

struct StartUpTest : PanelRig {
  static QString startUpText() {
    for (const QWidget* window : QApplication::topLevelWidgets())
      if (dynamic_cast<const StartUpWindow*>(window) != nullptr && window->isVisible())
        return window->findChildren<QLabel*>().last()->text();
    return {};
  }
};

TEST(TranslatedWaitNotice, ShowsTheWaitOverTheLastOutcomeAndThenTheOutcomeAgain) {
  QLabel label;
  StatusArea area(label);
  StartUpWindow startUp;
  QtCursor cursor;
  TranslatedStatusLine status(area);
  TranslatedWaitNotice notice(cursor, area, startUp);
  notice.waitingFor({"The touchscreen cannot be opened yet, trying again (attempt %n of 50)...", 7});
  EXPECT_TRUE(label.text().contains("attempt 7 of 50")) << label.text().toStdString();
  EXPECT_EQ(PanelRig::cursorShape(), Qt::WaitCursor);
  status.show({"Touch was enabled on %1.", "TS-1"});
  EXPECT_TRUE(label.text().contains("attempt 7 of 50")) << "the wait goes on";
  notice.done();
  EXPECT_EQ(label.text(), "Touch was enabled on TS-1.");
  EXPECT_EQ(PanelRig::cursorShape(), Qt::ArrowCursor);
}

TEST_F(StartUpTest, EndsWithoutAWindowWhenThereIsNoDriver) {
  AlertReader reader(user);
  reader.whileUp = [&] { EXPECT_FALSE(panel.mainWindow().isVisible()); };
  EXPECT_EQ(panel.run(), 0);
  EXPECT_EQ(reader.said.join('|'), "Warning: Not found touch device.");
  EXPECT_FALSE(panel.mainWindow().isVisible());
}

TEST_F(StartUpTest, SaysWhatItWaitsForWhileTouchscreensAreRead) {
  plugInAll();
  QStringList told;
  clock.onSleep = [&](std::chrono::milliseconds) {
    EXPECT_FALSE(panel.mainWindow().isVisible());
    if (told.isEmpty() || told.last() != startUpText()) told += startUpText();
  };
  start();
  EXPECT_GE(told.size(), 2);
  EXPECT_TRUE(told.contains("Reading the touchscreen's parameters...")) << told.join(" | ").toStdString();
  EXPECT_TRUE(startUpText().isEmpty()) << "it has gone";
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
}

TEST_F(StartUpTest, EndsWithTheMainWindow) {
  plugInAll();
  start();
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
  AlertReader reader(user);
  reader.whileUp = [] { EXPECT_EQ(cursorShape(), Qt::ArrowCursor); };
  machine.plugIn(touchscreen(Optical));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !reader.said.isEmpty(); }));
  EXPECT_EQ(reader.said.join('|'), "Error: To get the device parameters failed, please try again.");
  ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }));
  ASSERT_NE(run(), nullptr);
  EXPECT_TRUE(QTest::qWaitForWindowActive(ViewSurface::shown()));
  EXPECT_EQ(cursorShape(), Qt::BlankCursor);
  user.type("Escape");
  expectClosed();
}

}  // namespace
}  // namespace touchpanel::testing
