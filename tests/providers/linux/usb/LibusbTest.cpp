#include <array>
#include <cerrno>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <sys/file.h>

#include "LibusbOnMockBus.h"
#include "contract/ProductId.h"
#include "protocol/Exchange.h"
#include "providers/linux/loop/ErrnoStatus.h"
#include "providers/linux/loop/FileDescriptor.h"
#include "providers/linux/usb/UsbStatus.h"
#include "support/FakeClock.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {
namespace {

class Libusb : public ::testing::Test, protected LibusbOnMockBus {
 protected:
  /// Starts libusb with the infrared device plugged in, and opens that.
  UsbDeviceInterface* openInfrared() {
    bus.plugIn("1-2", infrared);
    start();
    auto* device = onlyDevice(kProductInfrared0080);
    EXPECT_EQ(device->open(), kSuccess);
    return device;
  }
  Status read(UsbDeviceInterface& device) {
    request = {0xC0, 0, 0, 0, 64, reply.data(), 4711};
    return device.deviceRequest(request);
  }
  void expectHeld(const firmware::Firmware& firmware) {
    const auto& held = firmware.stored();
    EXPECT_EQ(imageOf(context.ScreenProps), imageOf(held.screenProps));
    EXPECT_EQ(imageOf(context.DeviceConfig), imageOf(held.deviceConfig));
    EXPECT_EQ(imageOf(context.CalibParams), imageOf(held.calibParams));
    EXPECT_THAT(diagnostics.lines, ::testing::IsEmpty());
  }

  firmware::Firmware infrared{firmware::exampleDevice(DeviceKind::Infrared, 1)};
  firmware::Firmware optical{firmware::exampleDevice(DeviceKind::Optical, 3)};
  std::array<std::uint8_t, 64> reply{};
  DeviceRequest request;
  FakeClock clock;
  RecordingDiagnostics diagnostics;
  ExchangePorts ports{clock, diagnostics};
  _DEVICT_CONTEXT context{};
};

TEST_F(Libusb, LocatesIdenticalDevicesAndDevicesBehindHubs) {
  firmware::Firmware second{firmware::exampleDevice(DeviceKind::Infrared, 2)};
  firmware::Firmware third{firmware::exampleDevice(DeviceKind::Infrared, 3)};
  bus.plugIn("1-2", infrared);
  bus.plugIn("1-3.4", second);
  bus.plugIn("2-3.1.17", third);
  start();
  std::vector<std::uint32_t> locations;
  for (const auto service : watch(UsbEvent::FirstMatch, kProductInfrared0080).services)
    EXPECT_EQ(interfaceFor(service)->getLocationID(locations.emplace_back()), kSuccess);
  EXPECT_THAT(locations, ::testing::UnorderedElementsAre(0x01200000U, 0x01340000U, 0x02310110U));
}

TEST_F(Libusb, ReportsTheActiveConfigurationAndItsAbsence) {
  bus.plugIn("1-2", infrared);
  bus.plugIn("1-3", optical, 0);
  start();
  std::uint8_t configuration = 99;
  EXPECT_EQ(onlyDevice(kProductInfrared0080)->getConfiguration(configuration), kSuccess);
  EXPECT_EQ(configuration, 1);
  EXPECT_EQ(onlyDevice(kProductOptical)->getConfiguration(configuration), kSuccess);
  EXPECT_EQ(configuration, 0);
}

TEST_F(Libusb, CallsNothingBackFromInsideATransferAndWakesTheRunLoopAfterIt) {
  bus.plugIn("1-3", optical);
  auto* device = openInfrared();
  auto& departures = watch(UsbEvent::Terminate, kProductOptical);
  bus.setBeforeTransfer([this](const std::string&) { bus.unplug("1-3"); });
  // Transfer after transfer, until libusb has taken the departure in during one of them.
  while (!becomesReadable(0)) ASSERT_EQ(read(*device), kSuccess);
  for (int i = 0; i < 20; ++i) ASSERT_EQ(read(*device), kSuccess);
  EXPECT_EQ(departures.calls, 0);
  EXPECT_TRUE(becomesReadable(0));
  performUntil(servicesSeen() + 1);
  EXPECT_EQ(departures.calls, 1);
}

TEST_F(Libusb, ReadsAndWritesBothKindsOfDevices) {
  bus.plugIn("1-3.1", optical);
  auto* device = openInfrared();
  EXPECT_EQ(getIrTucParam(*device, context, ports), 1);
  EXPECT_EQ(device->close(), kSuccess);
  expectHeld(infrared);
  EXPECT_STREQ(context.FirmwareVer, "2.5.0012");
  EXPECT_STREQ(context.BarCode, "IR-2026-0000001");
  context.CalibParams.X.A30 = 0.25F;
  EXPECT_EQ(saveDataToIrDevice(*device, context, ports), 1);
  expectHeld(infrared);
  EXPECT_EQ(device->open(), kSuccess);  // it was closed again

  device = onlyDevice(kProductOptical);
  ASSERT_EQ(device->open(), kSuccess);
  EXPECT_EQ(getOptTucParam(*device, context, ports), 1);
  EXPECT_EQ(device->close(), kSuccess);
  expectHeld(optical);
  EXPECT_STREQ(context.FirmwareVer, "3.1.0007");
  EXPECT_STREQ(context.BarCode, "A26B11C-D1E-01-0000-0000003");
  context.CalibParams.Y.A03 = -0.5F;
  EXPECT_EQ(saveDataToOptDevice(*device, context, ports), 1);
  expectHeld(optical);
}

TEST_F(Libusb, EndsAnExchangeWhenTheDeviceIsPulledOutAtAnyTransferAndWorksAgainWhenItIsBack) {
  bus.plugIn("1-2", infrared);
  start();
  auto& arrivals = watch(UsbEvent::FirstMatch, kProductInfrared0080);
  auto& departures = watch(UsbEvent::Terminate, kProductInfrared0080);
  const int transfers = 16;  // of a whole read
  for (int survived = 0; survived < transfers; ++survived) {
    SCOPED_TRACE(survived);
    auto* device = interfaceFor(arrivals.services.back());
    ASSERT_EQ(device->open(), kSuccess);
    bus.setBeforeTransfer([this, left = survived](const std::string&) mutable {
      if (left-- == 0) bus.unplug("1-2");
    });
    EXPECT_EQ(getIrTucParam(*device, context, ports), 0);
    EXPECT_EQ(departures.calls, survived);
    performUntil(servicesSeen() + 1);
    EXPECT_EQ(read(*device), kErrorNoDevice);
    EXPECT_EQ(device->close(), kSuccess);
    EXPECT_EQ(device->open(), kErrorNoDevice);
    device->release();

    bus.setBeforeTransfer({});
    bus.plugIn("1-2", infrared);
    performUntil(servicesSeen() + 1);
  }
  diagnostics.lines.clear();
  auto* device = interfaceFor(arrivals.services.back());
  ASSERT_EQ(device->open(), kSuccess);
  EXPECT_EQ(getIrTucParam(*device, context, ports), 1);
  expectHeld(infrared);
}

TEST_F(Libusb, TranslatesWhatGoesWrongWithATransfer) {
  auto* device = openInfrared();
  const std::pair<firmware::FaultSetting, Status> faults[] = {
      {{firmware::Fault::Stalls, 0}, kErrorStalled},
      {{}, kSuccess},
      {{firmware::Fault::DiesAfterPackets, 0}, kErrorInputOutput}};
  bus.setHanging("1-2", true);
  EXPECT_EQ(read(*device), kErrorTimeout);
  EXPECT_EQ(request.wLenDone, 0U);
  bus.setHanging("1-2", false);
  for (const auto& [fault, status] : faults) {
    infrared.setFault(fault);
    request = {0x40, 0, 0, 0, 64, reply.data(), 4711};
    EXPECT_EQ(device->deviceRequest(request), status);
    EXPECT_EQ(request.wLenDone, status == kSuccess ? 64U : 0U);
  }
}

TEST_F(Libusb, EndsATransferUnderWayWhenTheDeviceIsPulledOut) {
  auto* device = openInfrared();
  bus.setHanging("1-2", true);
  bus.setAfterSubmit([this](const std::string& socket) { bus.unplug(socket); });
  EXPECT_EQ(read(*device), kErrorNoDevice);
}

TEST_F(Libusb, MovesAShortReplyOnly) {
  auto* device = openInfrared();
  infrared.setFault({firmware::Fault::ShortReply, 7});
  reply.fill(0xEE);
  EXPECT_EQ(read(*device), kSuccess);
  EXPECT_EQ(request.wLenDone, 7U);
  EXPECT_EQ(reply[6], 0);
  EXPECT_EQ(reply[7], 0xEE);
}

TEST_F(Libusb, RefusesADeviceWhoseNodeAnotherProgramHasLocked) {
  auto* device = openInfrared();
  EXPECT_EQ(device->close(), kSuccess);
  {
    const FileDescriptor node(::open(bus.nodeOf("1-2").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    ASSERT_EQ(::flock(node.get(), LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(device->open(), kErrorExclusiveAccess);
  }
  EXPECT_EQ(device->open(), kSuccess) << "the lock goes with whoever held it";
  const FileDescriptor node(::open(bus.nodeOf("1-2").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  EXPECT_NE(::flock(node.get(), LOCK_EX | LOCK_NB), 0) << "and others are kept out";
}

/// Codes that no device of the mock bus can be brought to.
TEST(UsbStatus, TellsForbiddenBusyAndUnknownApart) {
  EXPECT_EQ(statusOfLibusb(LIBUSB_ERROR_ACCESS), kErrorNotPermitted);
  EXPECT_EQ(statusOfLibusb(LIBUSB_ERROR_BUSY), kErrorExclusiveAccess);
  EXPECT_EQ(statusOfLibusb(-4711), kErrorGeneral);
  for (const int code : {EACCES, EPERM}) EXPECT_EQ(statusOfErrno(code), kErrorNotPermitted);
  for (const int code : {ENOENT, ENODEV, ENXIO}) EXPECT_EQ(statusOfErrno(code), kErrorNoDevice);
  EXPECT_EQ(statusOfErrno(0), kErrorGeneral) << "never success";
}

TEST(UdevRule, CoversExactlyTheSupportedTouchscreens) {
  std::stringstream rules;
  rules << std::ifstream(UDEV_RULES).rdbuf();
  const auto wanted = [](const char* format, auto number) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, unsigned{number});
    return std::string(text.data());
  };
  auto match = wanted("ATTR{idVendor}==\"%04x\", ATTR{idProduct}==\"", TOUCH_VENDOR_ID);
  for (const auto product : kProductIds) match += wanted("%04x|", product);
  match.back() = '"';
  EXPECT_THAT(rules.str(), ::testing::HasSubstr(match));
}

}  // namespace
}  // namespace touchpanel::testing
