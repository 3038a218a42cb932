// udev and libusb for real, on a mock USB bus with the firmware model behind it.
#include <gtest/gtest.h>

#include "contract/DriverProperties.h"
#include "contract/LocationId.h"
#include "driver/service/DriverService.h"
#include "providers/linux/input/UdevTouchscreens.h"
#include "providers/linux/loop/EventLoop.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeServicePorts.h"
#include "support/MockUsbBus.h"
#include "support/RecordingDiagnostics.h"
#include "touchdriverd/UsbCalibrationReader.h"

namespace touchpanel::testing {
namespace {

using firmware::Firmware;

firmware::DeviceDescription calibrated(DeviceKind kind) {
  auto description = firmware::exampleDevice(kind);
  description.deviceConfig.CalibrateStatus = 1;
  description.calibParams.X.A10 = description.calibParams.Y.A01 = 0.5F;
  return description;
}

class TouchscreensOnMockBus : public ::testing::Test {
 protected:
  void start() { touchscreens = std::make_unique<UdevTouchscreens>(loop, service, details); }
  template <typename Condition>
  bool happens(Condition condition) {
    const auto end = loop.now() + std::chrono::seconds(20);
    while (!condition() && loop.now() < end) loop.runOnce(std::chrono::milliseconds(100));
    return condition();
  }
  std::vector<RegistryObject> drivers() { return service.registry().instancesOf(class_name::kTouchDriver); }
  Dictionary calibration(RegistryObject object) {
    return *service.registry().properties(object)->dictionary(property::kCalibration);
  }
  bool isCalibrated(RegistryObject object) { return calibration(object).boolean("calibrateStatus"); }

  Firmware infrared{calibrated(DeviceKind::Infrared)};
  Firmware optical{calibrated(DeviceKind::Optical)};
  MockUsbBus bus;
  EventLoop loop;
  FakeTouchInputs inputs;
  FakePointerDevices pointers;
  RecordingDiagnostics diagnostics;
  RecordingDiagnostics details;
  FakePropertyListFiles files;
  driver::StateStore store{files, "/state", diagnostics};
  driver::UsbCalibrationReader reader{loop, details};
  driver::DriverService service{{inputs, pointers, loop, reader, diagnostics}, store};
  std::unique_ptr<UdevTouchscreens> touchscreens;
};

TEST_F(TouchscreensOnMockBus, ArePublishedAtOnceAndCalibratedOutOfTheDevice) {
  bus.plugIn("1-2", infrared);
  bus.plugIn("1-3.1", optical);
  start();
  ASSERT_EQ(drivers().size(), 2U);
  std::set<std::int64_t> places;
  for (const auto driver : drivers()) {
    EXPECT_FALSE(isCalibrated(driver)) << "published before it is read";
    places.insert(service.registry().properties(driver + 1)->longInteger(property::kLocationID));
  }
  EXPECT_EQ(places,
            (std::set<std::int64_t>{*locationIdFromKernelName("1-2"), *locationIdFromKernelName("1-3.1")}));
  for (const auto driver : drivers()) {
    EXPECT_TRUE(happens([&] { return isCalibrated(driver); }));
    const auto params = imageOf(infrared.stored().calibParams);
    EXPECT_EQ(*calibration(driver).bytes("calibParams"), Bytes(params.begin(), params.end()));
  }
  EXPECT_TRUE(diagnostics.lines.empty());
}

TEST_F(TouchscreensOnMockBus, ComeAndGo) {
  start();
  for (int round = 0; round < 3; ++round) {
    bus.plugIn("1-2", infrared);
    ASSERT_TRUE(happens([&] { return drivers().size() == 1; }));
    const bool pulledOutWhileItIsRead = round == 0;
    ASSERT_TRUE(pulledOutWhileItIsRead || happens([&] { return isCalibrated(drivers()[0]); }));
    bus.unplug("1-2");
    ASSERT_TRUE(happens([&] { return drivers().empty(); }));
  }
}

TEST_F(TouchscreensOnMockBus, OfOtherMakesAreNoneOfOurs) {
  auto foreign = firmware::exampleDevice(DeviceKind::Infrared);
  foreign.productId = 0x0099;
  Firmware otherProduct(foreign);
  bus.plugIn("1-2", otherProduct);
  bus.plugIn("1-3", infrared, 1, 0x1234);
  bus.plugIn("1-4", optical);
  start();
  EXPECT_EQ(drivers().size(), 1U);
}

}  // namespace
}  // namespace touchpanel::testing
