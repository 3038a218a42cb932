#pragma once

#include <QScreen>
#include <QTest>
#include <cmath>

#include <gtest/gtest.h>

#include "UserInput.h"
#include "calibration/CalibrationGrid.h"
#include "calibration/RegionCalibration.h"
#include "demo/CalibrationOnScreen.h"
#include "panel/ControlPanel.h"
#include "providers/simulated/SimulatedTouchscreens.h"
#include "support/FakeClock.h"
#include "support/FakeMonitors.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeWallClock.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {

/// The whole control panel in real windows, on three simulated touchscreens, one of each kind.
struct PanelRig : ::testing::Test {
  using Kind = DeviceKind;
  using enum DeviceKind;

  PanelRig() {
    // A panel that has ended in an earlier test keeps every later loop from running until this was done.
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    QCoreApplication::exec();
    for (auto& model : simulated::exampleTouchscreens()) machine.add(std::move(model));
  }

  simulated::SimulatedTouchscreen& touchscreen(Kind kind) {
    for (const auto& candidate : machine.all())
      if (kindOf(candidate->productId()) == kind) return *candidate;
    throw std::logic_error("no such touchscreen");
  }

  /// Starts the panel with what is plugged in and waits for its window.
  void start() {
    panel.start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel.mainWindow()));
  }
  void startWithAll() {
    for (const auto& touchscreen : machine.all()) machine.plugIn(*touchscreen);
    start();
  }
  void selectRow(Kind kind) {
    auto& view = *panel.mainWindow().ui().deviceTableView;
    const auto& list = panel.controller().state().deviceListArray;
    for (std::size_t row = 0; row < list.size(); ++row)
      if (list[row]->integer(entry_key::kProductID) == touchscreen(kind).productId())
        user.click(view.viewport()->mapToGlobal(
            view.visualRect(view.model()->index(static_cast<int>(row), 1)).center()));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return selected().integer(entry_key::kProductID) == touchscreen(kind).productId(); }));
  }
  const Dictionary& selected() { return *panel.controller().state().currentDict; }
  QString status() { return panel.mainWindow().ui().lbStatus->text(); }

  /// A finger taps the glass of `screen` at `location`: the sensor reports it, and the pointer clicks there.
  void tap(simulated::SimulatedTouchscreen& screen, const QPoint& location) {
    const QSize size = QGuiApplication::primaryScreen()->size();
    now += std::chrono::milliseconds(500);
    screen.touch({(location.x() + 0.5) / size.width(), (location.y() + 0.5) / size.height()}, now);
    now += std::chrono::milliseconds(200);
    screen.release(now);
    user.click(location);
  }

  /// The run that covers the screen; null when there is none.
  static const CalibrationRun* run() {
    const auto* surface = ViewSurface::shown();
    return surface == nullptr ? nullptr : demo::runOn(*surface);
  }
  /// Starts a calibration of the selected touchscreen over the whole screen.
  void startCalibration(std::int32_t mode) {
    panel.controller().state().currentDict->set(settings_key::kCalibrateMode, mode);
    user.click(*panel.mainWindow().ui().btnCalibrate);
    ASSERT_TRUE(QTest::qWaitFor([] { return run() != nullptr; }));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(ViewSurface::shown()));
    ASSERT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown()->isUpToDate(); }));
  }
  /// Touches every target that is left.
  void collect(Kind kind) {
    const QSizeF screen = QGuiApplication::primaryScreen()->size();
    while (run()->isCollecting()) {
      const int index = run()->touches().iTouchIndex;
      const auto place = static_cast<std::size_t>(index);
      const QPointF target(run()->touches().fDspX[place] * screen.width() / kLogicalMaximum,
                           run()->touches().fDspY[place] * screen.height() / kLogicalMaximum);
      tap(touchscreen(kind), target.toPoint());
      ASSERT_TRUE(QTest::qWaitFor([&] { return run()->touches().iTouchIndex == index + 1; }))
          << "target " << index;
      ASSERT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown()->isUpToDate(); }));
    }
  }
  static QPoint okButton() { return QGuiApplication::primaryScreen()->geometry().center(); }
  static QPoint cancelButton() { return okButton() + QPoint(100, 0); }
  static void expectClosed() {
    EXPECT_TRUE(QTest::qWaitFor([] { return ViewSurface::shown() == nullptr; }));
  }
  static Qt::CursorShape cursorShape() {
    const auto* cursor = QGuiApplication::overrideCursor();
    return cursor == nullptr ? Qt::ArrowCursor : cursor->shape();
  }
  FakeClock clock;
  FakePropertyListFiles files;
  RecordingDiagnostics diagnostics;
  FakeWallClock wallClock;
  FakeMonitors monitors;
  simulated::SimulatedTouchscreens machine;
  ControlPanel panel{{.usbNotifications = machine.usb(),
                      .usbServices = machine.usb(),
                      .registry = machine.registry(),
                      .monitors = monitors,
                      .files = files,
                      .clock = clock,
                      .diagnostics = diagnostics,
                      .paths = ConfigPaths::in("/etc/panel"),
                      .history = {files, wallClock, "/state"}}};
  UserInput user;
  std::chrono::microseconds now{0};
};

/// The same with all three plugged in, and started.
struct StartedPanelRig : PanelRig {
  void SetUp() override { startWithAll(); }
};

}  // namespace touchpanel::testing
