#include <memory>

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
#include "support/RecordingDiagnostics.h"
#include "support/RecordingWaitNotice.h"
#include "support/TouchedView.h"

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
    auto record = std::make_shared<FakeWindowRecord>();
    FakeFullScreenWindow window(record);
    Calibration view(Rect{0, 0, kScreen.width, kScreen.height}, ports_);
    view.setWindow(window);
    view.setCalibrateDict(entry_, controller_);
    finger_.show(view, record);
    for (int i = 0; i < entry_->integer(settings_key::kCalibrateMode); ++i) finger_.tapTarget();
    finger_.tapMiddle();
    return record->isClosed;
  }
  double meanError() { return finger_.meanError(); }

  /// What the touchscreen holds now; a driver instance that starts on it knows nothing else.
  firmware::DeviceDescription stored() { return touchscreen_.firmware().stored(); }
  void loadCalibrationIntoDriver() { touchscreen_.loadCalibrationIntoDriver(); }

 private:
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
  TouchedView finger_{touchscreen_, kScreen};
  FakeRunLoop runLoop_;
  FakeCursor cursor_;
  FakePresentation presentation_;
  FakeClock clock_;
  RecordingDiagnostics diagnostics_;
  RecordingWaitNotice waitNotice_;
  FakePropertyListFiles files_;
  DriverChannel driver_{machine_.registry()};
  ContextStore store_{
      machine_.usb(), files_, {"driver.plist", "device.plist"}, {clock_, diagnostics_}, waitNotice_};
  CalibrationPorts ports_{driver_, runLoop_, cursor_, presentation_, store_};
  NoTable controller_;
  DeviceEntry entry_;
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
