// udev and libusb for real, on a mock USB bus with the firmware model behind it.
#include <cerrno>
#include <set>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

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

namespace {
/// While true, udev's events get lost as when their socket is full.
bool eventsAreLost = false;
}  // namespace

extern "C" ssize_t recvmsg(int socket, msghdr* message, int flags) {
  static const auto real = reinterpret_cast<decltype(&recvmsg)>(dlsym(RTLD_NEXT, "recvmsg"));
  const auto received = real(socket, message, flags);
  if (received < 0 || !eventsAreLost) return received;
  errno = ENOBUFS;
  return -1;
}

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
  FakeTouchThread touches;
  FakeNotices notices;
  FakeOutputDevices outputs;
  RecordingDiagnostics diagnostics;
  FakePropertyListFiles files;
  FakeFileWorker worker;
  driver::StateStore store{files, worker, "/state", diagnostics};
  RecordingDiagnostics details;
  driver::UsbCalibrationReader reader{loop, files, "/state/device.plist", details};
  driver::DriverService service{{touches, inputs, outputs, loop, notices, reader, diagnostics}, store};
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

/// Keeps which touchscreens are there, by the end of their place.
struct Attendance final : TouchscreenListener {
  void touchscreenArrived(const std::string& device, const TouchscreenIdentity&) override {
    ++arrivals;
    EXPECT_TRUE(there.insert(device.substr(device.rfind('/') + 1)).second);
  }
  void touchscreenLeft(const std::string& device) override {
    EXPECT_EQ(there.erase(device.substr(device.rfind('/') + 1)), 1U);
  }
  void nodeArrived(const std::string&, const std::string&) override {}
  void nodeLeft(const std::string&) override {}

  std::set<std::string> there;
  int arrivals = 0;
};

TEST(TouchscreensOnMockBus, AreFoundAndMissedThoughUdevLostTheEvents) {
  MockUsbBus bus;
  Firmware firmware(firmware::exampleDevice(DeviceKind::Infrared));
  for (const char* socket : {"1-1", "1-2", "1-3"}) bus.plugIn(socket, firmware);
  EventLoop loop;
  Attendance attendance;
  RecordingDiagnostics details;
  const UdevTouchscreens touchscreens{loop, attendance, details};
  bus.unplug("1-1");
  bus.unplug("1-2");
  bus.plugIn("1-2", firmware);
  bus.plugIn("1-4", firmware);
  eventsAreLost = true;
  const auto end = loop.now() + std::chrono::seconds(20);
  while (attendance.arrivals < 5 && loop.now() < end) loop.runOnce(std::chrono::milliseconds(100));
  eventsAreLost = false;
  EXPECT_EQ(attendance.there, (std::set<std::string>{"1-2", "1-3", "1-4"}));
  EXPECT_EQ(attendance.arrivals, 5) << "the second one is another touchscreen in the same place";
}

}  // namespace
}  // namespace touchpanel::testing
