#include "PanelRig.h"
#include "app/CalibrationStarter.h"
#include "support/FakeApplication.h"
#include "support/FakeControls.h"
#include "support/FakeRunLoop.h"
#include "support/RecordingStatusLine.h"
#include "support/RecordingWaitNotice.h"

namespace touchpanel::testing {
namespace {

struct CalibrationWindowTest : PanelRig {
  void SetUp() override {
    plugInAll();
    start();
  }
  /// A run on the infrared touchscreen up to its finished grid.
  void finishGrid(std::int32_t mode) {
    selectRow(Infrared);
    startCalibration(mode);
    collect(Infrared);
    ASSERT_TRUE(run()->isFinished());
  }
  void expectTouchModeRestored() {
    EXPECT_EQ(published(Infrared, property::kConfigration).integer(configration_key::kMode),
              selected().integer(settings_key::kTouchMode));
    EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
  }
  void expectCommitted(const CalibrationRun& finished) {
    const auto params = finished.deviceContext().CalibParams;
    expectClosed();
    const auto& stored = touchscreen(Infrared).firmware().stored();
    EXPECT_EQ(std::memcmp(&stored.calibParams, &params, sizeof params), 0) << "in the device";
    EXPECT_EQ(stored.deviceConfig.CalibrateStatus, 1);
    EXPECT_EQ(selected().text(entry_key::kCalibrateStatus), "YES");
    EXPECT_TRUE(panel.mainWindow().ui().btnReset->isEnabled());
    EXPECT_TRUE(status().contains("was accepted")) << status().toStdString();
    expectTouchModeRestored();
  }
  void expectUnchanged(const firmware::DeviceDescription& before) {
    expectClosed();
    const auto& stored = touchscreen(Infrared).firmware().stored();
    EXPECT_EQ(std::memcmp(&stored.calibParams, &before.calibParams, sizeof before.calibParams), 0);
    EXPECT_EQ(stored.deviceConfig.CalibrateStatus, before.deviceConfig.CalibrateStatus);
    EXPECT_TRUE(status().contains("nothing was written")) << status().toStdString();
    expectTouchModeRestored();
  }
};

TEST_F(CalibrationWindowTest, CoversTheScreenAndHidesTheCursorWhileCollecting) {
  selectRow(Infrared);
  startCalibration(kFourTargets);
  EXPECT_EQ(ViewSurface::shown()->frameGeometry(), QGuiApplication::primaryScreen()->geometry());
  EXPECT_EQ(cursorShape(), Qt::BlankCursor);
  collect(Infrared);
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
}

TEST_F(CalibrationWindowTest, WritesTheResultOfBothGridsToTheDeviceOnOk) {
  for (const auto mode : {kFourTargets, kTwentyFiveTargets}) {
    SCOPED_TRACE(mode);
    finishGrid(mode);
    const auto& finished = *run();
    user.click(okButton());
    expectCommitted(finished);
  }
}

TEST_F(CalibrationWindowTest, WritesTheResultOnReturnButOnlyOnceTheGridIsFinished) {
  selectRow(Infrared);
  startCalibration(kFourTargets);
  user.type("Return");
  QCoreApplication::processEvents();
  ASSERT_NE(run(), nullptr);
  EXPECT_TRUE(run()->isCollecting());
  collect(Infrared);
  const auto& finished = *run();
  user.type("Return");
  expectCommitted(finished);
}

TEST_F(CalibrationWindowTest, PutsEverythingBackOnCancelAndOnEscape) {
  const auto before = touchscreen(Infrared).firmware().stored();
  finishGrid(kFourTargets);
  user.click(cancelButton());
  expectUnchanged(before);
  finishGrid(kTwentyFiveTargets);
  user.type("Escape");
  expectUnchanged(before);
  startCalibration(kTwentyFiveTargets);
  user.type("Escape");
  expectUnchanged(before);
}

TEST_F(CalibrationWindowTest, CollectsAgainOnReCalibrate) {
  finishGrid(kFourTargets);
  user.click(reCalibrateButton());
  ASSERT_TRUE(QTest::qWaitFor([] { return run()->isCollecting(); }));
  ASSERT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown()->isUpToDate(); }));
  EXPECT_EQ(run()->touches().iTouchIndex, 0);
  EXPECT_EQ(cursorShape(), Qt::BlankCursor);
  collect(Infrared);
  const auto& finished = *run();
  user.click(okButton());
  expectCommitted(finished);
}

TEST_F(CalibrationWindowTest, ActsOnTheButtonUnderTheReleaseOnly) {
  finishGrid(kFourTargets);
  user.press(okButton());
  ASSERT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown()->isUpToDate(); }));
  user.release(okButton() + QPoint(0, 200));
  QCoreApplication::processEvents();
  ASSERT_NE(run(), nullptr) << "released beside every button";
  user.press(okButton() + QPoint(0, 200));
  user.release(cancelButton());
  expectClosed();
}

TEST_F(CalibrationWindowTest, ClosesOverALostDeviceAndKeepsTheOtherTouchscreens) {
  selectRow(Infrared);
  startCalibration(kTwentyFiveTargets);
  tap(touchscreen(Infrared), onScreen(target(0)));
  ASSERT_TRUE(QTest::qWaitFor([] { return run()->touches().iTouchIndex == 1; }));
  machine.unplug(touchscreen(Infrared));
  ViewSurface::shown()->requestDisplay();
  expectClosed();
  EXPECT_EQ(cursorShape(), Qt::ArrowCursor);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return panel.mainWindow().ui().deviceTableView->model()->rowCount() == 2; }));
}

TEST_F(CalibrationWindowTest, EndsTheProgramWithStatus0WhenTheLastDeviceGoesInTheMiddleOfARun) {
  selectRow(Infrared);
  startCalibration(kFourTargets);
  for (const auto& each : machine.all()) machine.unplug(*each);
  EXPECT_TRUE(QTest::qWaitFor([&] { return panel.application().isEnding(); }));
  EXPECT_EQ(panel.application().exitStatus(), 0);
}

/// A run in a real window whose seconds the test counts.
TEST_F(CalibrationWindowTest, CancelsWhenTheCountDownHasRunOut) {
  selectRow(Infrared);
  const auto before = touchscreen(Infrared).firmware().stored();
  FakeApplication application;
  FakeAlerts alerts;
  FakeSheets sheets;
  FakePresentation presentation;
  FakeRunLoop seconds;
  RecordingStatusLine statusLine;
  RecordingWaitNotice waitNotice;
  CallbackGate gate(application, diagnostics);
  QtScreen screen(gate);
  QtCursor cursor;
  ProcessState process;
  const ControllerPorts ports{.application = application,
                              .alerts = alerts,
                              .sheets = sheets,
                              .screen = screen,
                              .cursor = cursor,
                              .presentation = presentation,
                              .clock = clock,
                              .runLoop = seconds,
                              .registry = machine.registry(),
                              .usbNotifications = machine.usb(),
                              .usbServices = machine.usb(),
                              .files = files,
                              .diagnostics = diagnostics,
                              .statusLine = statusLine,
                              .waitNotice = waitNotice,
                              .process = process,
                              .paths = ConfigPaths::in("/etc/panel")};
  CalibrationStarter starter(ports, panel.controller().state(), panel.controller());
  starter.startPoints();
  ASSERT_TRUE(QTest::qWaitFor([] { return run() != nullptr && ViewSurface::shown()->isUpToDate(); }));
  tap(touchscreen(Infrared), onScreen(target(0)));
  ASSERT_TRUE(QTest::qWaitFor([] { return run()->touches().iTouchIndex == 1; }));
  seconds.advance(std::chrono::seconds(29));
  QCoreApplication::processEvents();
  ASSERT_NE(ViewSurface::shown(), nullptr);
  seconds.advance(std::chrono::seconds(1));
  expectClosed();
  EXPECT_EQ(std::memcmp(&touchscreen(Infrared).firmware().stored().calibParams, &before.calibParams,
                        sizeof before.calibParams),
            0);
  expectTouchModeRestored();
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
  const Size box{600, 500};
  while (run()->isCollecting()) {
    const int index = run()->touches().iTouchIndex;
    tap(touchscreen(ConfigurationOnly), onScreen(fourPointTarget(index, box)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return run()->touches().iTouchIndex > index; }));
    ASSERT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown()->isUpToDate(); }));
  }
  user.click(onScreen({300, 250}));
  expectClosed();
  EXPECT_EQ(selected().text(entry_key::kCalibrateStatus), "YES");
  EXPECT_TRUE(files.files.contains(ConfigPaths::in("/etc/panel").deviceConfig));
}

}  // namespace
}  // namespace touchpanel::testing
