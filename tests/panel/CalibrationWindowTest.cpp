#include "PanelRig.h"

namespace touchpanel::testing {
namespace {

struct CalibrationWindowTest : PanelRig {
  void SetUp() override {
    plugInAll();
    start();
    selectRow(Infrared);
  }
  void expectRestored(const char* inStatus) {
    expectClosed();
    EXPECT_TRUE(status().contains(inStatus)) << status().toStdString();
    EXPECT_EQ(published(Infrared, property::kConfigration).integer(configration_key::kMode),
              selected().integer(settings_key::kTouchMode));
    EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
  }
  void expectCommitted(const CalibrationRun& finished) {
    const auto params = finished.deviceContext().CalibParams;
    expectRestored("was accepted");
    const auto& stored = touchscreen(Infrared).firmware().stored();
    EXPECT_EQ(std::memcmp(&stored.calibParams, &params, sizeof params), 0) << "in the device";
    EXPECT_EQ(stored.deviceConfig.CalibrateStatus, 1);
    EXPECT_EQ(selected().text(entry_key::kCalibrateStatus), "YES");
    EXPECT_TRUE(panel.mainWindow().ui().btnReset->isEnabled());
  }
};

TEST_F(CalibrationWindowTest, CoversTheScreenAndWritesTheResultOnReturnOnceTheGridIsFinished) {
  startCalibration(kFourTargets);
  EXPECT_EQ(ViewSurface::shown()->frameGeometry(), QGuiApplication::primaryScreen()->geometry());
  EXPECT_EQ(cursorShape(), Qt::BlankCursor);
  user.type("Return");
  QCoreApplication::processEvents();
  ASSERT_NE(run(), nullptr);
  collect(Infrared);
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
  const auto& finished = *run();
  user.type("Return");
  expectCommitted(finished);
}

TEST_F(CalibrationWindowTest, CollectsAgainOnReCalibrateAndWritesOnOkUnderTheRelease) {
  startCalibration(kTwentyFiveTargets);
  collect(Infrared);
  user.click(reCalibrateButton());
  ASSERT_TRUE(QTest::qWaitFor([] { return run()->isCollecting() && ViewSurface::shown()->isUpToDate(); }));
  EXPECT_EQ(cursorShape(), Qt::BlankCursor);
  collect(Infrared);
  user.press(okButton());
  ASSERT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown()->isUpToDate(); }));
  user.release(okButton() + QPoint(0, 200));
  QCoreApplication::processEvents();
  ASSERT_NE(run(), nullptr) << "released beside every button";
  const auto& finished = *run();
  user.click(okButton());
  expectCommitted(finished);
}

TEST_F(CalibrationWindowTest, PutsEverythingBackOnCancelAndOnEscape) {
  const auto before = touchscreen(Infrared).firmware().stored();
  for (const bool isFinished : {true, false}) {
    startCalibration(kFourTargets);
    if (isFinished) collect(Infrared);
    isFinished ? user.click(cancelButton()) : user.type("Escape");
    expectRestored("nothing was written");
    const auto& stored = touchscreen(Infrared).firmware().stored();
    EXPECT_EQ(std::memcmp(&stored.calibParams, &before.calibParams, sizeof before.calibParams), 0);
    EXPECT_EQ(stored.deviceConfig.CalibrateStatus, before.deviceConfig.CalibrateStatus);
  }
}

TEST_F(CalibrationWindowTest, ClosesOverALostDeviceAndEndsTheProgramWithTheLast) {
  startCalibration(kTwentyFiveTargets);
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

TEST_F(CalibrationWindowTest, CalibratesARegionThatIsDraggedOut) {
  selectRow(ConfigurationOnly);
  panel.controller().state().currentDict->set(settings_key::kCalibrateMode, kFourTargets);
  user.click(*panel.mainWindow().ui().btnRegionCalibrate);
  ASSERT_TRUE(QTest::qWaitFor([] { return run() != nullptr && ViewSurface::shown()->isUpToDate(); }));
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor) << "needed for dragging";
  user.drag({100, 100}, {700, 600});
  const auto& region = dynamic_cast<const RegionCalibration&>(*ViewSurface::shown()->view());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !region.isChoosing() && ViewSurface::shown()->isUpToDate(); }));
  collect(ConfigurationOnly, Size{600, 500});
  user.click(onScreen({300, 250}));
  expectClosed();
  EXPECT_EQ(selected().text(entry_key::kCalibrateStatus), "YES");
  EXPECT_TRUE(files.files.contains(ConfigPaths::in("/etc/panel").deviceConfig));
}

}  // namespace
}  // namespace touchpanel::testing
