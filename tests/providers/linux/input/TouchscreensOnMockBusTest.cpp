// udev and libusb for real, on a mock USB bus with the firmware model behind it.
#include <gtest/gtest.h>

#include "contract/DriverProperties.h"
#include "contract/LocationId.h"
#include "driver/service/DriverService.h"
#include "providers/linux/input/UdevTouchscreens.h"
#include "providers/linux/loop/EventLoop.h"
#include "support/FakeFileWorker.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeServicePorts.h"
#include "support/MockUsbBus.h"
#include "support/RecordingDiagnostics.h"
#include "touchdriverd/UsbCalibrationReader.h"

namespace touchpanel::testing {
namespace {

using firmware::Firmware;

TEST(TouchscreensOnMockBus, ArePublishedAtOnceReadOutAndWithdrawnUnlessOfAnotherMake) {
  auto description = firmware::exampleDevice(DeviceKind::Infrared);
  description.deviceConfig.CalibrateStatus = 1;
  description.calibParams.X.A10 = description.calibParams.Y.A01 = 0.5F;
  Firmware infrared(description);
  description.productId = firmware::exampleDevice(DeviceKind::Optical).productId;
  Firmware optical(description);
  description.productId = 0x0099;
  Firmware unknown(description);
  MockUsbBus bus;
  bus.plugIn("1-2", infrared);
  bus.plugIn("1-4", unknown);
  bus.plugIn("1-5", infrared, 1, 0x1234);

  EventLoop loop;
  FakeTouchInputs inputs;
  FakePointerDevices pointers;
  RecordingDiagnostics diagnostics;
  FakePropertyListFiles files;
  FakeFileWorker worker;
  driver::StateStore store{files, worker, "/state", diagnostics};
  RecordingDiagnostics details;
  driver::UsbCalibrationReader reader{loop, details};
  driver::DriverService service{{inputs, pointers, loop, reader, diagnostics}, store};
  const UdevTouchscreens touchscreens{loop, service, details};
  const auto happens = [&](const auto& condition) {
    const auto end = loop.now() + std::chrono::seconds(20);
    while (!condition() && loop.now() < end) loop.runOnce(std::chrono::milliseconds(100));
    return condition();
  };
  const auto drivers = [&] { return service.registry().instancesOf(class_name::kTouchDriver); };
  const auto read = [&](RegistryObject driver) {
    return *service.registry().properties(driver)->dictionary(property::kCalibration)->bytes("calibParams");
  };
  const auto params = imageOf(description.calibParams);
  const Bytes held(params.begin(), params.end());

  ASSERT_EQ(drivers().size(), 1U);
  EXPECT_NE(read(drivers()[0]), held) << "published before it is read";
  bus.plugIn("1-3.1", optical);
  ASSERT_TRUE(happens([&] { return drivers().size() == 2; }));
  for (const auto& [driver, port] : {std::pair{drivers()[0], "1-2"}, std::pair{drivers()[1], "1-3.1"}}) {
    EXPECT_EQ(service.registry().properties(driver + 1)->longInteger(property::kLocationID),
              *locationIdFromKernelName(port));
    EXPECT_TRUE(happens([&] { return read(driver) == held; }));
  }
  EXPECT_TRUE(diagnostics.lines.empty());
  bus.unplug("1-2");
  EXPECT_TRUE(happens([&] { return drivers().size() == 1; }));
}

}  // namespace
}  // namespace touchpanel::testing
