#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "calibration/CalibrationRun.h"
#include "calibration/CalibrationSolver.h"
#include "contract/ProductId.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeRegistry.h"
#include "support/FakeRunLoop.h"
#include "support/FakeScreen.h"
#include "support/FakeUsb.h"
#include "support/RecordingCanvas.h"
#include "support/RecordingDiagnostics.h"
#include "support/RecordingWaitNotice.h"

namespace touchpanel::testing {

// Messages to the driver as CalibrationRig::sent() writes them.
inline const std::string kCaptureOn = "statCalibrate=1 ";
inline const std::string kFinished = "mode=2 statCalibrate=0 ";
inline const std::string kTried = "calibrateStatus=1 calibParams=solved minX=0 minY=0 maxX=32767 maxY=32767 ";
inline const std::string kCancelled = "calibrateStatus=1 calibParams=before ";
inline const std::string kExit = "mode=3 statCalibrate=0 ";

inline Bytes bytesOf(const auto& record) {
  const auto image = imageOf(record);
  return {image.begin(), image.end()};
}

class ReloadCounter final : public TableReloader {
 public:
  void reloadTableViewData() override { ++reloads; }
  int reloads = 0;
};

/// A touchscreen that keeps its calibration in a file, its driver instance, and a calibration view of type
/// `CalibrationView` in a window of 1920 x 1080. A finger's touches reach the view through the driver instance.
template <typename CalibrationView>
class CalibrationRig {
 public:
  /// Nothing is drawn beside targets, note, number and buttons but with a `scale`.
  explicit CalibrationRig(std::int32_t mode, std::optional<SurfaceScale> scale = {},
                          Size screen = {1920, 1080})
      : view(std::make_unique<CalibrationView>(
            Rect{0, 0, screen.width, screen.height},
            CalibrationPorts{driver, runLoop, cursor, presentation, store, scale})) {
    // No byte is 0, and no two neighbours are equal.
    std::array<std::uint8_t, kDeviceContextSize> image{};
    for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(1 + i % 251);
    copyImage(image, context);
    *entry = {{entry_key::kCalibrateStatus, entry_key::kNo},
              {settings_key::kTouchMode, 3},
              {settings_key::kCalibrateMode, mode},
              {entry_key::kHandle, static_cast<std::int32_t>(handle)},
              {entry_key::kProductID, std::int32_t{kProductConfigurationOnly}}};
    storeContext(*entry, context);
    view->setWindow(window);
  }

  /// Starts the run and forgets what that sent to the driver.
  void start() {
    view->setCalibrateDict(entry, controller);
    paint();
    sent();
  }
  /// One redraw; what it drew.
  Operations paint() {
    record->redrawRequests = 0;
    RecordingCanvas canvas;
    view->drawRect(canvas);
    return canvas.operations;
  }
  /// The redraws that were asked for, until none is; what the last one drew.
  Operations settle() {
    Operations last;
    for (int i = 0; i < 10 && record->redrawRequests > 0 && !record->isClosed; ++i) last = paint();
    return last;
  }
  Operations press(Point location) {
    view->mouseDown(location);
    return settle();
  }
  Operations drag(Point location) {
    view->mouseDragged(location);
    return settle();
  }
  Operations release(Point location) {
    view->mouseUp(location);
    return settle();
  }
  void click(Point location) {
    press(location);
    release(location);
  }
  void key(std::uint16_t keyCode) {
    view->keyDown(keyCode);
    settle();
  }
  /// Seconds pass, each followed by the redraws that it asked for; what the last one drew.
  Operations wait(int seconds) {
    Operations last;
    for (int i = 0; i < seconds; ++i) {
      runLoop.advance(std::chrono::seconds(1));
      last = settle();
    }
    return last;
  }

  /// The driver publishes a touch, and the finger leaves the screen at `location`.
  Operations touch(std::int32_t x, std::int32_t y, std::int32_t pointId, Point location = {1, 1}) {
    publish(Dictionary{{"x", x}, {"y", y}, {"pointId", pointId}});
    return release(location);
  }
  void publish(std::optional<Dictionary> captured) {
    auto& properties = registry.objects.at(handle).properties;
    properties.reset();
    if (captured) properties = Dictionary{{"calibration", *captured}};
  }
  /// Touches for the first `count` targets, far enough from a plane to tell the two models apart.
  Operations touchTargets(std::int32_t count) {
    const bool four = mode() == kFourTargets;
    Operations last;
    for (std::int32_t i = 0; i < count; ++i)
      last = touch(1700 + (four ? i % 2 * 29000 : i % 5 * 7300) + i * i,
                   1500 + (four ? i / 2 * 29000 : i / 5 * 7400) - 3 * i, i);
    return last;
  }
  Operations touchAll() { return touchTargets(mode()); }
  /// Touches every target where it lies, but `wrong` ones where the one before lies.
  Operations touchExactly(const std::set<std::int32_t>& wrong = {}) {
    Operations last;
    for (std::int32_t i = 0; i < mode(); ++i) {
      const auto from = static_cast<std::size_t>(wrong.contains(i) ? i - 1 : i);
      last = touch(static_cast<std::int32_t>(touches().fDspX[from]),
                   static_cast<std::int32_t>(touches().fDspY[from]), i);
    }
    return last;
  }

  /// What was written to the driver since the last call. Parameters are those "before" the run or the "solved"
  /// ones of its touches.
  std::string sent() {
    std::string text;
    for (const auto& write : std::exchange(registry.writes, {})) {
      EXPECT_EQ(write.object, handle);
      for (const auto& [key, value] : *write.value.template get<Dictionary>())
        text += key + '=' + textOf(value) + ' ';
    }
    return text;
  }
  /// The run ended, with these messages to the driver, and does nothing any more.
  void expectClosed(const std::string& messages) {
    EXPECT_EQ(sent(), messages);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(runLoop.timerCount(), 0U);
    EXPECT_FALSE(cursor.isHidden);
    EXPECT_EQ(presentation.calls, (std::vector<FakePresentation::Call>{{0, 1}}));
    registry.objects[handle] = {class_name::kTouchDriver, 0, Dictionary()};
    const auto entryBefore = *entry;
    record->redrawRequests = 0;
    for (const Point button : {Point{960, 540}, Point{400, 200}}) {
      view->mouseDown(button);
      view->mouseDragged(button);
      view->mouseUp(button);
    }
    view->keyDown(kKeyReturn);
    view->keyDown(kKeyEscape);
    EXPECT_EQ(record->redrawRequests, 0);
    EXPECT_EQ(paint(), Operations{});
    EXPECT_EQ(record->redrawRequests, 0);
    EXPECT_EQ(registry.writes.size(), 0U);
    EXPECT_EQ(*entry, entryBefore);
    EXPECT_EQ(presentation.calls.size(), 1U);
  }
  bool isClosed() const { return record->isClosed; }
  std::string status() const { return entry->text("CalibrateStatus"); }
  const TouchCollection& touches() const { return view->run().touches(); }
  _DEVICT_CONTEXT stored() const { return contextOf(*entry); }
  _CALIB_PARAMS solution() const {
    auto params = context.CalibParams;
    const auto& taken = touches();
    const float *rawX = taken.fScrX.data(), *rawY = taken.fScrY.data();
    generateCalibParam(taken.fDspX.data(), taken.fDspY.data(), rawX, rawY, mode(), params.X, params.Y,
                       mode() == kTwentyFiveTargets, {rawX, rawY});
    return params;
  }

  _DEVICT_CONTEXT context{};
  FakeRegistry registry;
  RegistryObject handle = registry.addDriver(1);
  FakeRunLoop runLoop;
  FakeCursor cursor;
  FakePresentation presentation;
  FakeClock clock;
  RecordingDiagnostics diagnostics;
  RecordingWaitNotice waitNotice;
  FakePropertyListFiles files;
  FakeUsb usb;
  DriverChannel driver{registry};
  ContextStore store{usb, files, {"driver.plist", "device.plist"}, {clock, diagnostics}, waitNotice};
  ReloadCounter controller;
  std::shared_ptr<FakeWindowRecord> record = std::make_shared<FakeWindowRecord>();
  FakeFullScreenWindow window{record};
  DeviceEntry entry = std::make_shared<Dictionary>();
  std::unique_ptr<CalibrationView> view;

 private:
  std::int32_t mode() const { return entry->integer(settings_key::kCalibrateMode); }
  std::string textOf(const Value& value) const {
    const auto* bytes = value.get<Bytes>();
    if (!bytes) return std::to_string(value.longInteger());
    if (*bytes == bytesOf(context.CalibParams)) return "before";
    return *bytes == bytesOf(solution()) ? "solved" : "unknown";
  }
};

}  // namespace touchpanel::testing
