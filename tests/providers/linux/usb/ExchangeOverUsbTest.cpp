#include "UsbOnMockBus.h"
#include "protocol/Exchange.h"
#include "support/FakeClock.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {
namespace {

class ExchangeOverUsb : public UsbOnMockBus {
 protected:
  FakeClock clock;
  RecordingDiagnostics diagnostics;
  ExchangePorts ports{clock, diagnostics};
  _DEVICT_CONTEXT context{};
};

void expectHeld(const _DEVICT_CONTEXT& context, const firmware::DeviceDescription& held) {
  EXPECT_EQ(imageOf(context.ScreenProps), imageOf(held.screenProps));
  EXPECT_EQ(imageOf(context.DeviceConfig), imageOf(held.deviceConfig));
  EXPECT_EQ(imageOf(context.CalibParams), imageOf(held.calibParams));
}

TEST_F(ExchangeOverUsb, ReadsAndWritesAnInfraredDevice) {
  bus.plugIn("1-2", infrared);
  start();
  auto* device = onlyDevice(kProductInfrared0080);
  ASSERT_EQ(device->open(), kSuccess);
  EXPECT_EQ(getIrTucParam(*device, context, ports), 1);
  EXPECT_EQ(device->close(), kSuccess);
  expectHeld(context, infrared.stored());
  EXPECT_STREQ(context.FirmwareVer, "2.5.0012");
  EXPECT_STREQ(context.BarCode, "IR-2026-0000001");

  context.CalibParams.X.A30 = 0.25F;
  context.DeviceConfig.CalibrateStatus = 1;
  EXPECT_EQ(saveDataToIrDevice(*device, context, ports), 1);
  expectHeld(context, infrared.stored());
  EXPECT_TRUE(diagnostics.lines.empty());
  EXPECT_EQ(device->open(), kSuccess);  // it was closed again
}

TEST_F(ExchangeOverUsb, ReadsAndWritesAnOpticalDevice) {
  bus.plugIn("1-3.1", optical);
  start();
  auto* device = onlyDevice(kProductOptical);
  ASSERT_EQ(device->open(), kSuccess);
  EXPECT_EQ(getOptTucParam(*device, context, ports), 1);
  EXPECT_EQ(device->close(), kSuccess);
  expectHeld(context, optical.stored());
  EXPECT_STREQ(context.FirmwareVer, "3.1.0007");
  EXPECT_STREQ(context.BarCode, "A26B11C-D1E-01-0000-0000003");

  context.CalibParams.Y.A03 = -0.5F;
  EXPECT_EQ(saveDataToOptDevice(*device, context, ports), 1);
  expectHeld(context, optical.stored());
  EXPECT_TRUE(diagnostics.lines.empty());
}

TEST_F(ExchangeOverUsb, EndsWhenTheDeviceIsPulledOutAtAnyTransferAndWorksAgainWhenItIsBack) {
  bus.plugIn("1-2", infrared);
  start();
  auto& arrivals = watch(UsbEvent::FirstMatch, kProductInfrared0080);
  auto& departures = watch(UsbEvent::Terminate, kProductInfrared0080);
  const int transfers = 16;  // of a whole read
  for (int survived = 0; survived < transfers; ++survived) {
    SCOPED_TRACE(survived);
    const auto round = static_cast<std::size_t>(survived) + 1;
    ASSERT_EQ(arrivals.services.size(), round);
    auto* device = interfaceFor(arrivals.services.back());
    ASSERT_EQ(device->open(), kSuccess);
    bus.setBeforeTransfer([this, left = survived](const std::string&) mutable {
      if (left-- == 0) bus.unplug("1-2");
    });
    context = {};
    EXPECT_EQ(getIrTucParam(*device, context, ports), 0);
    EXPECT_EQ(departures.calls, survived);
    performUntil(departures, round);

    DeviceRequest request{0xC0, 0, 0, 0, 64, imageOf(context).data(), 0};
    EXPECT_EQ(device->deviceRequest(request), kErrorNoDevice);
    EXPECT_EQ(device->close(), kSuccess);
    EXPECT_EQ(device->open(), kErrorNoDevice);
    device->release();

    bus.setBeforeTransfer({});
    bus.plugIn("1-2", infrared);
    performUntil(arrivals, round + 1);
  }
  auto* device = interfaceFor(arrivals.services.back());
  ASSERT_EQ(device->open(), kSuccess);
  EXPECT_EQ(getIrTucParam(*device, context, ports), 1);
  expectHeld(context, infrared.stored());
}

TEST_F(ExchangeOverUsb, TranslatesWhatGoesWrongWithATransfer) {
  bus.plugIn("1-2", infrared);
  start();
  auto* device = onlyDevice(kProductInfrared0080);
  std::array<std::uint8_t, 64> reply{};
  const auto read = [&] {
    DeviceRequest request{0xC0, 0, 0, 0, 64, reply.data(), 4711};
    const auto status = device->deviceRequest(request);
    EXPECT_EQ(request.wLenDone, status == kSuccess ? 64U : 0U);
    return status;
  };
  EXPECT_EQ(read(), kErrorNotOpen);
  EXPECT_EQ(device->close(), kErrorNotOpen);
  ASSERT_EQ(device->open(), kSuccess);
  EXPECT_EQ(read(), kSuccess);
  infrared.setFault({firmware::Fault::Stalls, 0});
  EXPECT_EQ(read(), kErrorStalled);
  infrared.setFault({});
  bus.setHanging("1-2", true);
  EXPECT_EQ(read(), kErrorTimeout);
  bus.setHanging("1-2", false);
  EXPECT_EQ(read(), kSuccess);
  DeviceRequest noRequest{0x40, 0, 0, 0, 64, reply.data(), 0};
  infrared.setFault({firmware::Fault::DiesAfterPackets, 0});
  EXPECT_EQ(device->deviceRequest(noRequest), kErrorInputOutput);
}

TEST_F(ExchangeOverUsb, EndsATransferUnderWayWhenTheDeviceIsPulledOut) {
  bus.plugIn("1-2", infrared);
  start();
  auto* device = onlyDevice(kProductInfrared0080);
  ASSERT_EQ(device->open(), kSuccess);
  bus.setHanging("1-2", true);
  bus.setAfterSubmit([this](const std::string& socket) { bus.unplug(socket); });
  std::array<std::uint8_t, 64> reply{};
  DeviceRequest request{0xC0, 0, 0, 0, 64, reply.data(), 0};
  EXPECT_EQ(device->deviceRequest(request), kErrorNoDevice);
}

TEST_F(ExchangeOverUsb, MovesAShortReplyOnly) {
  bus.plugIn("1-2", infrared);
  start();
  auto* device = onlyDevice(kProductInfrared0080);
  ASSERT_EQ(device->open(), kSuccess);
  infrared.setFault({firmware::Fault::ShortReply, 7});
  std::array<std::uint8_t, 64> reply{};
  reply.fill(0xEE);
  DeviceRequest request{0xC0, 0, 0, 0, 64, reply.data(), 0};
  EXPECT_EQ(device->deviceRequest(request), kSuccess);
  EXPECT_EQ(request.wLenDone, 7U);
  EXPECT_EQ(reply[6], 0);
  EXPECT_EQ(reply[7], 0xEE);
}

}  // namespace
}  // namespace touchpanel::testing
