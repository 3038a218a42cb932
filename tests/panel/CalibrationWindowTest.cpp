#include "PanelRig.h"

namespace touchpanel::testing {
namespace {

using CalibrationWindowTest = StartedPanelRig;

TEST_F(CalibrationWindowTest, CoversTheScreenAndActsOnTheButtonUnderTheReleaseAndEndsWithTheLastDevice) {
  selectRow(Infrared);
  startCalibration(kFourTargets);
  EXPECT_EQ(ViewSurface::shown()->frameGeometry(), QGuiApplication::primaryScreen()->geometry());
  EXPECT_EQ(cursorShape(), Qt::BlankCursor);
  collect(Infrared);
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
  user.press(okButton());
  ASSERT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown()->isUpToDate(); }));
  user.release(okButton() + QPoint(0, 200));
  QCoreApplication::processEvents();
  ASSERT_NE(run(), nullptr) << "released beside every button";
  user.hold(cancelButton());
  expectClosed();
  EXPECT_TRUE(status().contains("nothing was written")) << status().toStdString();
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
  EXPECT_TRUE(QTest::qWaitFor([&] { return panel.mainWindow().isActiveWindow(); }));

  startCalibration(kFourTargets);
  machine.unplug(touchscreen(Infrared));
  ViewSurface::shown()->requestDisplay();
  expectClosed();
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return panel.mainWindow().ui().deviceTableView->model()->rowCount() == 2; }));
  startCalibration(kFourTargets);
  for (const Kind kind : {Optical, ConfigurationOnly}) machine.unplug(touchscreen(kind));
  EXPECT_TRUE(QTest::qWaitFor([&] { return panel.application().isEnding(); }));
  EXPECT_EQ(panel.application().exitStatus(), 0);
}

}  // namespace
}  // namespace touchpanel::testing
