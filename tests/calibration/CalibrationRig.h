#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "calibration/CalibrationRun.h"
#include "firmware/Firmware.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeRegistry.h"
#include "support/FakeRunLoop.h"
#include "support/FakeScreen.h"
#include "support/FakeUsb.h"
#include "support/FakeUsbDevice.h"
#include "support/RecordingCanvas.h"
#include "support/RecordingDiagnostics.h"
#include "support/RecordingWaitNotice.h"

namespace touchpanel::testing {

using Operations = std::vector<RecordingCanvas::Operation>;

/// A context in which no byte is 0 and no two neighbours are equal.
inline _DEVICT_CONTEXT distinctContext() {
  std::array<std::uint8_t, kDeviceContextSize> image{};
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(1 + i % 251);
  _DEVICT_CONTEXT context{};
  copyImage(image, context);
  return context;
}

inline Value bytesOf(const _CALIB_PARAMS& params) {
  const auto image = imageOf(params);
  return Bytes(image.begin(), image.end());
}

/// The messages of a run, as a registry keeps them.
struct Messages {
  RegistryObject handle;
  using Write = FakeRegistry::Write;

  Write capture(bool on) const { return calibration({{"statCalibrate", on}}); }
  Write pointId(std::int32_t id) const { return calibration({{"pointId", id}}); }
  Write mode(std::int32_t mode) const { return {handle, "configration", Dictionary{{"mode", mode}}}; }
  Write saved(const _CALIB_PARAMS& params) const {
    return calibration({{"calibrateStatus", true},
                        {"calibParams", bytesOf(params)},
                        {"minX", 0},
                        {"minY", 0},
                        {"maxX", 32767},
                        {"maxY", 32767}});
  }
  Write cancelled(bool status, const _CALIB_PARAMS& params, const char* key = "calibParams") const {
    return calibration({{"calibrateStatus", status}, {key, bytesOf(params)}});
  }

 private:
  Write calibration(Dictionary message) const { return {handle, "calibration", std::move(message)}; }
};

/// A main controller that notes what the entry held when it was told to reload.
class ReloadCounter final : public TableReloader {
 public:
  void reloadTableViewData() override { ++reloads; }
  int reloads = 0;
};

/// One touchscreen with its driver instance, and a calibration view of type `CalibrationView` in a window.
template <typename CalibrationView>
class CalibrationRig {
 public:
  explicit CalibrationRig(std::int32_t mode, Rect frame = {0, 0, 1920, 1080}, std::int32_t productId = 0x0080)
      : touchscreen(firmware::exampleDevice(kindOf(productId))),
        view(std::make_unique<CalibrationView>(frame, ports)) {
    usb.add(device);
    device.answer = [this](const Bytes& packet) { return answerOf(packet); };
    auto image = imageOf(context);
    entry = std::make_shared<Dictionary>(Dictionary{
        {entry_key::kCalibrateStatus, entry_key::kNo},
        {settings_key::kTouchMode, 3},
        {settings_key::kCalibrateMode, mode},
        {entry_key::kHandle, static_cast<std::int32_t>(handle)},
        {entry_key::kDeviceInterface, device.ownReference},
        {entry_key::kProductID, productId},
        {entry_key::kDeviceContext, Bytes(image.begin(), image.end())},
    });
    view->setWindow(window);
  }

  /// Starts the run and forgets what that sent to the driver.
  void start() {
    view->setCalibrateDict(entry, controller);
    paint();
    registry.writes.clear();
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
  /// The driver publishes a touch, and the finger leaves the screen at `location`.
  Operations touch(std::int32_t x, std::int32_t y, std::int32_t pointId, Point location = {1, 1}) {
    publish({{"x", x}, {"y", y}, {"pointId", pointId}});
    view->mouseUp(location);
    return settle();
  }
  void publish(Dictionary captured) {
    registry.objects.at(handle).properties = Dictionary{{"calibration", std::move(captured)}};
  }
  /// Touches for all targets, far enough from a plane to tell the two models apart.
  Operations touchAll() {
    Operations last;
    const auto count = entry->integer(settings_key::kCalibrateMode);
    for (std::int32_t i = 0; i < count; ++i) last = touch(rawX(i, count), rawY(i, count), i);
    return last;
  }
  static std::int32_t rawX(std::int32_t i, std::int32_t count) {
    return 1700 + (count == 4 ? i % 2 * 29000 : i % 5 * 7300) + i * i;
  }
  static std::int32_t rawY(std::int32_t i, std::int32_t count) {
    return 1500 + (count == 4 ? i / 2 * 29000 : i / 5 * 7400) - 3 * i;
  }
  void click(Point location) {
    view->mouseDown(location);
    settle();
    view->mouseUp(location);
    settle();
  }
  void key(std::uint16_t keyCode) {
    view->keyDown(keyCode);
    settle();
  }
  /// Seconds pass, each followed by the redraws that it asked for.
  void wait(int seconds) {
    for (int i = 0; i < seconds; ++i) {
      runLoop.advance(std::chrono::seconds(1));
      settle();
    }
  }
  /// What was written to the driver since the last call, without the probes of the redraws.
  std::vector<FakeRegistry::Write> sent() {
    auto writes = std::exchange(registry.writes, {});
    std::erase(writes, FakeRegistry::Write{handle, "configration", Dictionary()});
    return writes;
  }
  bool isClosed() const { return record->isClosed; }
  const TouchCollection& touches() const { return view->run().touches(); }
  _DEVICT_CONTEXT stored() const { return contextOf(*entry); }

  _DEVICT_CONTEXT context = distinctContext();
  FakeRegistry registry;
  RegistryObject handle = registry.addDriver(1);
  Messages message{handle};
  FakeRunLoop runLoop;
  FakeCursor cursor;
  FakePresentation presentation;
  FakeClock clock;
  RecordingDiagnostics diagnostics;
  RecordingWaitNotice waitNotice;
  FakePropertyListFiles files;
  firmware::Firmware touchscreen;
  FakeUsbDevice device;
  FakeUsb usb;
  DriverChannel driver{registry};
  ContextStore store{usb, files, {"driver.plist", "device.plist"}, {clock, diagnostics}, waitNotice};
  CalibrationPorts ports{driver, runLoop, cursor, presentation, store};
  ReloadCounter controller;
  std::shared_ptr<FakeWindowRecord> record = std::make_shared<FakeWindowRecord>();
  FakeFullScreenWindow window{record};
  DeviceEntry entry;
  std::unique_ptr<CalibrationView> view;

 private:
  Bytes answerOf(const Bytes& packet) {
    touchscreen.receive(packet);
    Bytes reply(64);
    std::size_t length = 0;
    touchscreen.reply(reply, length);
    reply.resize(length);
    return reply;
  }
};

}  // namespace touchpanel::testing
