#include <cmath>
#include <memory>
#include <numeric>

#include <gtest/gtest.h>

#include "calibration/Calibration.h"
#include "discovery/ContextStore.h"
#include "platform_build/BuildConstants.h"
#include "providers/simulated/SimulatedTouchscreens.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeRunLoop.h"
#include "support/FakeScreen.h"
#include "support/RecordingCanvas.h"
#include "support/RecordingDiagnostics.h"
#include "support/RecordingWaitNotice.h"

namespace touchpanel::testing {
namespace {

class NoTable final : public TableReloader {
 public:
  void reloadTableViewData() override {}
};

/// A simulated touchscreen in front of a 1920 x 1080 screen, from the finger on the glass to the pointer,
/// with a calibration view on it that gets the pointer's events and nothing else.
class Desk {
 public:
  static constexpr Size kScreen{1920, 1080};

  Desk(firmware::DeviceDescription device, std::int32_t mode, firmware::Distortion distortion)
      : touchscreen_(machine_.add({"Touchscreen", std::move(device), distortion, 0x14100000})) {
    touchscreen_.setOutput([this](const driver::OutputFrame& frame) { frames_.push_back(frame); });
    machine_.plugIn(touchscreen_);
    const auto image = imageOf(_DEVICT_CONTEXT{});
    entry_ = std::make_shared<Dictionary>(
        Dictionary{{settings_key::kTouchMode, 0},
                   {settings_key::kCalibrateMode, mode},
                   {entry_key::kHandle, static_cast<std::int32_t>(machine_.handleOf(touchscreen_))},
                   {entry_key::kDeviceInterface, deviceReference()},
                   {entry_key::kProductID, static_cast<std::int32_t>(touchscreen_.productId())},
                   {entry_key::kDeviceContext, Bytes(image.begin(), image.end())}});
  }

  /// Every target is touched where it is drawn, then OK; false when the run did not end by that.
  bool calibrate() {
    record_ = std::make_shared<FakeWindowRecord>();
    FakeFullScreenWindow window(record_);
    view_ = std::make_unique<Calibration>(Rect{0, 0, kScreen.width, kScreen.height}, ports_);
    view_->setWindow(window);
    view_->setCalibrateDict(entry_, controller_);
    paint();
    for (int i = 0; i < entry_->integer(settings_key::kCalibrateMode); ++i) tap(shownTarget());
    tap({kScreen.width / 2, kScreen.height / 2});
    const bool closed = record_->isClosed;
    view_.reset();
    return closed;
  }

  /// Mean distance in pixels between touched points and the pointer, on points halfway between targets.
  double meanError() {
    constexpr int kPoints = 8;
    double sum = 0;
    for (int row = 0; row < kPoints; ++row)
      for (int column = 0; column < kPoints; ++column) {
        const Point touched{kScreen.width * (0.09F + 0.117F * static_cast<float>(column)),
                            kScreen.height * (0.09F + 0.117F * static_cast<float>(row))};
        frames_.clear();
        touchAndRelease(touched);
        const Point pointer = locationOf(frames_.front());
        sum += std::hypot(pointer.x - touched.x, pointer.y - touched.y);
      }
    return sum / (kPoints * kPoints);
  }

  /// What the touchscreen holds now; a driver instance that starts on it knows nothing else.
  firmware::DeviceDescription stored() { return touchscreen_.firmware().stored(); }
  void loadCalibrationIntoDriver() { touchscreen_.loadCalibrationIntoDriver(); }

 private:
  void touchAndRelease(Point point) {
    using std::chrono_literals::operator""ms;
    const firmware::ScreenFraction fraction{point.x / kScreen.width, 1 - point.y / kScreen.height};
    touchscreen_.touch(fraction, now_ += 1000ms);
    touchscreen_.release(now_ += 50ms);
  }
  /// A finger's touch and what the desktop makes of it.
  void tap(Point point) {
    frames_.clear();
    touchAndRelease(point);
    bool pressed = false;
    Point location;
    for (const auto& frame : frames_) {
      if (frame.hasPosition) location = locationOf(frame);
      if (frame.left && !pressed) view_->mouseDown(location);
      if (!frame.left && pressed) view_->mouseUp(location);
      pressed = frame.left;
      while (std::exchange(record_->redrawRequests, 0) > 0 && !record_->isClosed) paint();
    }
  }
  static Point locationOf(const driver::OutputFrame& frame) {
    return {static_cast<float>(frame.x) * kScreen.width / kLogicalMaximum,
            kScreen.height - static_cast<float>(frame.y) * kScreen.height / kLogicalMaximum};
  }
  void paint() {
    canvas_.operations.clear();
    view_->drawRect(canvas_);
  }
  /// The middle of the smallest disc on the screen.
  Point shownTarget() const {
    Point middle;
    for (const auto& operation : canvas_.operations)
      if (const auto* disc = std::get_if<FilledOval>(&operation))
        middle = {disc->bounds.x + disc->bounds.width / 2, disc->bounds.y + disc->bounds.height / 2};
    return middle;
  }
  UsbDeviceReference deviceReference() {
    auto& usb = machine_.usb();
    UsbIterator* iterator = nullptr;
    UsbDeviceInterface* device = nullptr;
    UsbPlugIn plugIn = 0;
    usb.addMatchingNotification(
        usb.createNotificationPort(1), UsbEvent::FirstMatch,
        {{"idVendor", TOUCH_VENDOR_ID}, {"idProduct", touchscreen_.productId()}}, [](UsbIterator&) {},
        iterator);
    usb.createPlugIn(iterator->next(), plugIn);
    usb.queryDeviceInterface(plugIn, device);
    return device->reference();
  }

  simulated::SimulatedTouchscreens machine_;
  simulated::SimulatedTouchscreen& touchscreen_;
  std::vector<driver::OutputFrame> frames_;
  std::chrono::microseconds now_{0};
  FakeRunLoop runLoop_;
  FakeCursor cursor_;
  FakePresentation presentation_;
  FakeClock clock_;
  RecordingDiagnostics diagnostics_;
  RecordingWaitNotice waitNotice_;
  FakePropertyListFiles files_;
  RecordingCanvas canvas_;
  DriverChannel driver_{machine_.registry()};
  ContextStore store_{
      machine_.usb(), files_, {"driver.plist", "device.plist"}, {clock_, diagnostics_}, waitNotice_};
  CalibrationPorts ports_{driver_, runLoop_, cursor_, presentation_, store_};
  NoTable controller_;
  DeviceEntry entry_;
  std::shared_ptr<FakeWindowRecord> record_;
  std::unique_ptr<Calibration> view_;
};

TEST(CalibrationChain, BringsTheErrorOfABentSensorBelowATenthWithTwentyFiveTargets) {
  const firmware::Distortion bent{
      .offsetX = 0.012, .offsetY = -0.02, .scaleX = 0.97, .skewX = 0.01, .barrel = 0.05, .noise = 12};
  Desk desk(firmware::exampleDevice(DeviceKind::Infrared), 25, bent);
  const auto before = desk.meanError();
  ASSERT_TRUE(desk.calibrate());
  const auto after = desk.meanError();
  RecordProperty("before", std::to_string(before));
  RecordProperty("after", std::to_string(after));
  EXPECT_LT(after, before / 10) << before << " pixels before";
  Desk later(desk.stored(), 25, bent);
  later.loadCalibrationIntoDriver();
  EXPECT_LT(later.meanError(), before / 10) << "the device holds the result";
}

TEST(CalibrationChain, BringsTheErrorOfAnOblongSensorBelowATenthWithFourTargets) {
  Desk desk(firmware::exampleDevice(DeviceKind::Optical), 4,
            {.offsetX = -0.02, .offsetY = 0.015, .scaleX = 1.03, .scaleY = 0.96, .skewY = 0.02, .noise = 12});
  const auto before = desk.meanError();
  ASSERT_TRUE(desk.calibrate());
  EXPECT_LT(desk.meanError(), before / 10) << before << " pixels before";
}

TEST(CalibrationChain, BendsWhatFourTargetsCannotStraighten) {
  const firmware::Distortion barrel{.barrel = 0.08};
  const auto device = firmware::exampleDevice(DeviceKind::Infrared);
  Desk four(device, 4, barrel), twentyFive(device, 25, barrel);
  ASSERT_TRUE(four.calibrate());
  ASSERT_TRUE(twentyFive.calibrate());
  EXPECT_LT(twentyFive.meanError(), four.meanError() / 10);
}

}  // namespace
}  // namespace touchpanel::testing
