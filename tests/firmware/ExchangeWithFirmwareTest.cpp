#include <gmock/gmock.h>

#include "protocol/Exchange.h"
#include "support/FakeClock.h"
#include "support/FirmwareUsbDevice.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::firmware {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Lines = std::vector<std::string>;

constexpr char kToDiagnosis[] = "To set the touchscreen to the diagnosis mode failed.";
constexpr char kToWork[] = "To set the touchscreen to the work mode failed.";

/// The real exchanges on the firmware of one touchscreen.
class Panel {
 public:
  explicit Panel(DeviceKind kind, FaultSetting fault = {})
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
  bool holdsTheDevicesBlocks() const {
    const auto& held = firmware.stored();
    return imageOf(context.ScreenProps) == imageOf(held.screenProps) && holdsWhatItWrote();
  }
  bool holdsWhatItWrote() const {
    const auto& held = firmware.stored();
    return imageOf(context.DeviceConfig) == imageOf(held.deviceConfig) &&
           imageOf(context.CalibParams) == imageOf(held.calibParams);
  }
  bool deviceIsBackAtWork() const { return !firmware.inCommandMode(0) && !firmware.inCommandMode(1); }

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

TEST(ExchangeWithFirmware, ReadsAllThatADeviceHolds) {
  const std::string versions[] = {"2.5.0012", "3.1.0007"};
  const std::string barCodes[] = {"IR-2026-0012345", "A26B11C-D1E-01-0000-0012345"};
  for (int i = 0; i < 2; ++i) {
    Panel panel(kBothKinds[i]);
    EXPECT_EQ(panel.read(), 1);
    EXPECT_TRUE(panel.holdsTheDevicesBlocks());
    EXPECT_EQ(panel.context.FirmwareVer, versions[i]);
    EXPECT_EQ(panel.context.BarCode, barCodes[i]);
    EXPECT_TRUE(panel.deviceIsBackAtWork());
    EXPECT_THAT(panel.diagnostics.lines, IsEmpty());
    EXPECT_EQ(panel.clock.now.count(), i == 0 ? 360 : 590);
  }
}

TEST(ExchangeWithFirmware, WritesACalibrationThatSurvivesAPowerCycle) {
  for (const auto kind : kBothKinds) {
    Panel panel(kind);
    panel.read();
    panel.context.DeviceConfig.CalibrateStatus = 1;
    panel.context.CalibParams.X.A30 = 0.125F;
    panel.context.CalibParams.Y.A00 = -77.5F;
    panel.context.CalibParams.Y.reserve[17] = 0xC3;
    panel.clock.now = {};
    EXPECT_EQ(panel.write(), 1);
    EXPECT_EQ(panel.clock.now.count(), kind == DeviceKind::Infrared ? 170 : 190);
    EXPECT_TRUE(panel.deviceIsBackAtWork());
    EXPECT_FALSE(panel.device.isOpen);
    panel.firmware.powerCycle();

    const auto written = panel.context;
    panel.context = {};
    EXPECT_EQ(panel.read(), 1);
    EXPECT_EQ(imageOf(panel.context.CalibParams), imageOf(written.CalibParams));
    EXPECT_EQ(panel.context.DeviceConfig.CalibrateStatus, 1);
  }
}

/// What a read comes to when the device has a fault: result, printed lines, whether the blocks arrived.
struct FaultRow {
  const char* name;
  FaultSetting fault;
  int result;
  Lines infraredLines;
  Lines opticalLines;
  bool blocksArrive;
};

const FaultRow kFaultRows[] = {
    {"IgnoresMode", {Fault::IgnoresCommand, CMD_SET_MODE}, 0, {kToDiagnosis}, {kToDiagnosis}, false},
    {"IgnoresProps",
     {Fault::IgnoresCommand, CMD_GET_PROPS},
     1,
     {"To get screen props failed.", "To get device configuration failed."},
     {"To get secondary cam props failed.", "To get device configuration failed."},
     false},
    {"IgnoresVersion",
     {Fault::IgnoresCommand, CMD_GET_VERSION},
     1,
     {"To get firmware version failed."},
     {"To get firmware version failed."},
     true},
    {"IgnoresInfraredX",
     {Fault::IgnoresCommand, CMD_IR_GET_CALIB_X},
     1,
     {"To get calib X parameter failed."},
     {},
     true},
    {"IgnoresOpticalBarCode",
     {Fault::IgnoresCommand, CMD_OPT_GET_BARCODE},
     1,
     {},
     {"To get barcode version failed."},
     true},
    {"WrongEcho", {Fault::WrongEcho, 0}, 0, {kToDiagnosis}, {kToDiagnosis}, false},
    {"WrongReplyClass", {Fault::WrongReplyClass, 0}, 0, {kToDiagnosis}, {kToDiagnosis}, false},
    {"LateReply", {Fault::LateReply, 3}, 1, {}, {}, true},
    {"LateReplyJustInTime", {Fault::LateReply, 49}, 1, {}, {}, true},
    {"LateReplyTooLate", {Fault::LateReply, 50}, 0, {kToDiagnosis}, {kToDiagnosis}, false},
    {"Stalls", {Fault::Stalls, 0}, 0, {kToDiagnosis}, {kToDiagnosis}, false},
    {"ShorterThanTheHeader", {Fault::ShortReply, 2}, 0, {kToDiagnosis}, {kToDiagnosis}, false},
    {"ShortReply", {Fault::ShortReply, 40}, 1, {}, {}, false},
    {"OddVersionLength", {Fault::OddVersionLength, 0}, 1, {}, {}, true},
    {"UnterminatedBarCode", {Fault::UnterminatedBarCode, 0}, 1, {}, {}, true},
};

class FaultyDevice : public ::testing::TestWithParam<std::tuple<FaultRow, DeviceKind>> {};
std::string nameOf(const ::testing::TestParamInfo<FaultyDevice::ParamType>& info) {
  const auto& [row, kind] = info.param;
  return row.name + std::string(kind == DeviceKind::Optical ? "Optical" : "Infrared");
}
INSTANTIATE_TEST_SUITE_P(EveryFault, FaultyDevice,
                         ::testing::Combine(::testing::ValuesIn(kFaultRows), ::testing::ValuesIn(kBothKinds)),
                         nameOf);

TEST_P(FaultyDevice, IsReadAsFarAsItGoes) {
  const auto& [row, kind] = GetParam();
  Panel panel(kind, row.fault);
  EXPECT_EQ(panel.read(), row.result);
  EXPECT_EQ(panel.diagnostics.lines, kind == DeviceKind::Optical ? row.opticalLines : row.infraredLines);
  const bool wholeCalibration = row.fault.argument != CMD_IR_GET_CALIB_X || kind == DeviceKind::Optical;
  EXPECT_EQ(panel.holdsTheDevicesBlocks(), row.blocksArrive && wholeCalibration);
  // A device whose entry seemed to fail is left as it is.
  EXPECT_TRUE(row.result == 0 || panel.deviceIsBackAtWork());
}

TEST(ExchangeWithFirmware, LeavesTheVersionAloneWhenItsLengthIsOdd) {
  for (const auto kind : kBothKinds) {
    Panel panel(kind, {Fault::OddVersionLength, 0});
    panel.read();
    EXPECT_STREQ(panel.context.FirmwareVer, "");
  }
}

TEST(ExchangeWithFirmware, KeepsTheLastBytesOfTheFieldWhenABarCodeHasNoTerminator) {
  Panel panel(DeviceKind::Infrared, {Fault::UnterminatedBarCode, 0});
  panel.read();
  EXPECT_EQ(std::string(panel.context.BarCode), std::string(33, '#'));
}

TEST(ExchangeWithFirmware, EndsWhereverTheDeviceDies) {
  struct Row {
    DeviceKind kind;
    bool writes;
    std::uint32_t packets;  // of a whole exchange
    std::uint32_t entries;
  };
  for (const Row& row : {Row{DeviceKind::Infrared, false, 8, 1}, Row{DeviceKind::Infrared, true, 5, 1},
                         Row{DeviceKind::Optical, false, 10, 2}, Row{DeviceKind::Optical, true, 7, 2}}) {
    for (std::uint32_t survived = 0; survived < row.packets; ++survived) {
      Panel panel(row.kind, {Fault::DiesAfterPackets, survived});
      EXPECT_EQ(row.writes ? panel.write() : panel.read(), 0);
      const auto blocksLost = std::min(row.packets - row.entries, row.packets - survived) - row.entries;
      const bool atTheDoor = survived < row.entries || survived + row.entries >= row.packets;
      EXPECT_EQ(panel.diagnostics.lines.size(), atTheDoor ? 1 : blocksLost + 1) << survived;
      EXPECT_FALSE(panel.device.isOpen);
    }
    Panel panel(row.kind, {Fault::DiesAfterPackets, row.packets});
    EXPECT_EQ(row.writes ? panel.write() : panel.read(), 1);
  }
}

TEST(ExchangeWithFirmware, WritesWholeBlocksThoughTheRepliesAreGarbled) {
  for (const auto kind : kBothKinds)
    for (std::uint32_t seed = 0; seed < 50; ++seed) {
      Panel panel(kind, {Fault::GarbledReply, seed});
      panel.context.CalibParams.X.A00 = 4.5F;
      EXPECT_EQ(panel.write(), 1);
      EXPECT_TRUE(panel.holdsWhatItWrote());
      EXPECT_EQ(panel.read(), 1);
      EXPECT_TRUE(panel.deviceIsBackAtWork());
    }
}

}  // namespace
}  // namespace touchpanel::firmware
