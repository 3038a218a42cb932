#include <gmock/gmock.h>

#include "protocol/Exchange.h"
#include "support/FakeClock.h"
#include "support/FirmwareUsbDevice.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::firmware {
namespace {

using enum Fault;

/// The real exchanges with the firmware of one touchscreen.
class Touchscreen {
 public:
  explicit Touchscreen(DeviceKind kind, FaultSetting fault = {})
      : kind_(kind), firmware(exampleDevice(kind, 12345)) {
    firmware.setFault(fault);
  }
  int read() {
    return kind_ == DeviceKind::Optical ? getOptTucParam(device, context, ports)
                                        : getIrTucParam(device, context, ports);
  }
  int write() {
    return kind_ == DeviceKind::Optical ? saveDataToOptDevice(device, context, ports)
                                        : saveDataToIrDevice(device, context, ports);
  }
  bool hasReadEveryBlock() const {
    return imageOf(context.ScreenProps) == imageOf(firmware.stored().screenProps) && holdsWhatWasWritten();
  }
  bool holdsWhatWasWritten() const {
    const auto& held = firmware.stored();
    return imageOf(context.DeviceConfig) == imageOf(held.deviceConfig) &&
           imageOf(context.CalibParams) == imageOf(held.calibParams);
  }
  bool isBackAtWork() const { return !firmware.inCommandMode(0) && !firmware.inCommandMode(1); }

 private:
  DeviceKind kind_;

 public:
  Firmware firmware;
  testing::FirmwareUsbDevice device{firmware};
  testing::FakeClock clock;
  testing::RecordingDiagnostics diagnostics;
  ExchangePorts ports{clock, diagnostics};
  _DEVICT_CONTEXT context{};
};

constexpr DeviceKind kBothKinds[] = {DeviceKind::Infrared, DeviceKind::Optical};

TEST(ExchangeWithFirmware, ReadsAllThatADeviceHoldsAndWritesWhatSurvivesAPowerCycle) {
  struct Row {
    DeviceKind kind;
    const char *version, *barCode;
    int readMs, writeMs;
  };
  for (const auto& row : {Row{DeviceKind::Infrared, "2.5.0012", "IR-2026-0012345", 360, 170},
                          Row{DeviceKind::Optical, "3.1.0007", "A26B11C-D1E-01-0000-0012345", 590, 190}}) {
    Touchscreen touchscreen(row.kind);
    auto& context = touchscreen.context;
    EXPECT_EQ(touchscreen.read(), 1);
    EXPECT_TRUE(touchscreen.hasReadEveryBlock());
    EXPECT_STREQ(context.FirmwareVer, row.version);
    EXPECT_STREQ(context.BarCode, row.barCode);
    EXPECT_EQ(touchscreen.clock.now.count(), row.readMs);

    context.DeviceConfig.CalibrateStatus = 1;
    context.CalibParams.X.A30 = 0.125F;
    context.CalibParams.Y.A00 = -77.5F;
    context.CalibParams.Y.reserve[17] = 0xC3;
    EXPECT_EQ(touchscreen.write(), 1);
    EXPECT_EQ(touchscreen.clock.now.count(), row.readMs + row.writeMs);
    EXPECT_FALSE(touchscreen.device.isOpen);
    EXPECT_TRUE(touchscreen.isBackAtWork());
    touchscreen.firmware.powerCycle();
    EXPECT_TRUE(touchscreen.holdsWhatWasWritten());
    EXPECT_TRUE(touchscreen.diagnostics.lines.empty());
  }
}

TEST(ExchangeWithFirmware, ReadsAFaultyDeviceAsFarAsItGoes) {
  struct Row {
    FaultSetting fault;
    int result;
    std::size_t lines;
    bool blocksArrive;
    bool versionArrives = true;
  };
  const Row rows[] = {
      {{IgnoresCommand, CMD_SET_MODE}, 0, 1, false, false},
      {{IgnoresCommand, CMD_GET_PROPS}, 1, 2, false},
      {{IgnoresCommand, CMD_GET_VERSION}, 1, 1, true, false},
      {{WrongEcho}, 0, 1, false, false},
      {{WrongReplyClass}, 0, 1, false, false},
      {{LateReply, 49}, 1, 0, true},
      {{LateReply, 50}, 0, 1, false, false},
      {{Stalls}, 0, 1, false, false},
      {{ShortReply, 2}, 0, 1, false, false},
      {{ShortReply, 40}, 1, 0, false},
      {{OddVersionLength}, 1, 0, true, false},
      {{UnterminatedBarCode}, 1, 0, true},
  };
  for (const auto& row : rows)
    for (const auto kind : kBothKinds) {
      SCOPED_TRACE(::testing::Message() << "fault " << static_cast<int>(row.fault.fault) << " with "
                                        << row.fault.argument << ", kind " << static_cast<int>(kind));
      Touchscreen touchscreen(kind, row.fault);
      EXPECT_EQ(touchscreen.read(), row.result);
      EXPECT_EQ(touchscreen.diagnostics.lines.size(), row.lines);
      EXPECT_EQ(touchscreen.hasReadEveryBlock(), row.blocksArrive);
      EXPECT_EQ(touchscreen.context.FirmwareVer[0] != 0, row.versionArrives);
      // A device whose entry seemed to fail is left as it is.
      EXPECT_TRUE(row.result == 0 || touchscreen.isBackAtWork());
      if (row.fault.fault != UnterminatedBarCode || kind == DeviceKind::Optical) continue;
      EXPECT_EQ(touchscreen.context.BarCode, std::string(33, '#'));
    }
}

TEST(ExchangeWithFirmware, WritesWholeBlocksThoughTheRepliesAreGarbled) {
  for (const auto kind : kBothKinds)
    for (std::uint32_t seed = 0; seed < 50; ++seed) {
      Touchscreen touchscreen(kind, {GarbledReply, seed});
      touchscreen.context.CalibParams.X.A00 = 4.5F;
      EXPECT_EQ(touchscreen.write(), 1);
      EXPECT_TRUE(touchscreen.holdsWhatWasWritten());
      EXPECT_EQ(touchscreen.read(), 1);
      EXPECT_TRUE(touchscreen.isBackAtWork());
    }
}

}  // namespace
}  // namespace touchpanel::firmware
