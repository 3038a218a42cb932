#include <random>

#include <gtest/gtest.h>

#include "firmware/Firmware.h"
#include "protocol/Exchange.h"
#include "support/FakeClock.h"
#include "support/FirmwareUsbDevice.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::firmware {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes packet(std::uint8_t kind, std::uint8_t code, std::uint8_t subCode, const Bytes& payload = {}) {
  Bytes built(kPacketSize);
  built.resize(
      buildPkg(kind, code, subCode, static_cast<std::int32_t>(payload.size()), payload.data(), built.data()));
  return built;
}
Bytes enter(std::uint8_t unit) { return packet(PKT_SET, CMD_SET_MODE, unit, {kModeCommand}); }
const Bytes kGetVersion = packet(PKT_GET, CMD_GET_VERSION, 0);

Bytes replyOf(Firmware& firmware) {
  Bytes reply(kPacketSize);
  std::size_t length = 0;
  EXPECT_EQ(firmware.reply(reply, length), TransferResult::Done);
  reply.resize(length);
  return reply;
}

const Bytes kNothing(kPacketSize);

TEST(Firmware, AnswersWithAWellFormedPacketOfItsReplyClass) {
  Firmware firmware(exampleDevice(DeviceKind::Infrared));
  firmware.receive(enter(0));
  firmware.receive(kGetVersion);
  Bytes expected = {0xAA, 0x10, 0x32, 5, 0, 5, 2, 12, 0, 0x59};
  expected.resize(kPacketSize);
  EXPECT_EQ(replyOf(firmware), expected);
}

TEST(Firmware, HandsItsBlocksOutOnlyWhenEveryUnitIsInCommandMode) {
  Firmware firmware(exampleDevice(DeviceKind::Optical));
  const auto read = packet(PKT_GET, CMD_OPT_GET_CALIB, 0);
  firmware.receive(read);
  EXPECT_EQ(replyOf(firmware), kNothing);
  firmware.receive(enter(0));
  firmware.receive(read);
  EXPECT_EQ(replyOf(firmware)[kCommandAt], CMD_SET_MODE);
  firmware.receive(enter(1));
  firmware.receive(read);
  EXPECT_EQ(replyOf(firmware)[kCommandAt], CMD_OPT_GET_CALIB);
  firmware.receive(packet(PKT_SET, CMD_SET_MODE, 0, {kModeWork}));
  EXPECT_FALSE(firmware.inCommandMode(0));
  EXPECT_TRUE(firmware.inCommandMode(1));
  firmware.receive(read);
  EXPECT_EQ(replyOf(firmware)[kCommandAt], CMD_SET_MODE);
}

TEST(Firmware, IgnoresEveryTruncationAndBitFlipOfAPacket) {
  Firmware firmware(exampleDevice(DeviceKind::Infrared));
  const auto good = enter(0);
  for (std::size_t length = 0; length < good.size(); ++length)
    EXPECT_EQ(firmware.receive(std::span(good).first(length)), TransferResult::Done);
  for (std::size_t bit = 0; bit < 8 * good.size(); ++bit) {
    auto flipped = good;
    flipped[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
    EXPECT_EQ(firmware.receive(flipped), TransferResult::Done);
    if (bit / 8 >= kPayloadAt) continue;
    flipped.back() = static_cast<std::uint8_t>(flipped.back() + flipped[bit / 8] - good[bit / 8]);
    EXPECT_EQ(firmware.receive(flipped), TransferResult::Done) << "a wrong header with its checksum";
  }
  EXPECT_FALSE(firmware.inCommandMode());
  EXPECT_EQ(replyOf(firmware), kNothing);
}

TEST(Firmware, StandsAnyPackets) {
  std::minstd_rand random(7);
  const auto byte = [&] { return static_cast<std::uint8_t>(random() >> 8); };
  for (const auto kind : {DeviceKind::Infrared, DeviceKind::Optical, DeviceKind::ConfigurationOnly}) {
    Firmware firmware(exampleDevice(kind));
    for (int i = 0; i < 3000; ++i) {
      Bytes payload(random() % 59);
      std::generate(payload.begin(), payload.end(), byte);
      auto sent = packet(random() % 2 == 0 ? PKT_SET : PKT_GET, byte(), random() % 3 == 0, payload);
      if (random() % 4 == 0) sent.resize(random() % 100);
      firmware.setFault({static_cast<Fault>(random() % 11), static_cast<std::uint32_t>(random() % 70)});
      firmware.receive(sent);
      Bytes reply(random() % 65);
      std::size_t length = 0;
      firmware.reply(reply, length);
      EXPECT_LE(length, reply.size());
      if (i % 16 == 0) firmware.powerCycle();
    }
  }
}

TEST(Firmware, OfAConfigurationOnlyDeviceStallsEveryTransfer) {
  Firmware firmware(exampleDevice(DeviceKind::ConfigurationOnly));
  Bytes reply(kPacketSize);
  std::size_t length = 1;
  EXPECT_EQ(firmware.receive(kGetVersion), TransferResult::Stalled);
  EXPECT_EQ(firmware.reply(reply, length), TransferResult::Stalled);
  EXPECT_EQ(length, 0U);
}

TEST(Firmware, ThatIsLateCountsEveryCommandAnew) {
  Firmware firmware(exampleDevice(DeviceKind::Infrared));
  firmware.setFault({Fault::LateReply, 2});
  const auto mode = enter(0);
  const std::pair<Bytes, bool> sent[] = {{mode, false},        {mode, true},       {mode, false},
                                         {kGetVersion, false}, {mode, false},      {mode, true},
                                         {kGetVersion, false}, {kGetVersion, true}};
  for (const auto& [command, answered] : sent) {
    firmware.receive(command);
    EXPECT_EQ(replyOf(firmware) != kNothing, answered);
  }
}

TEST(Firmware, ComesBackInWorkModeWithItsBlocksAndItsFaultAfterAPowerCycle) {
  Firmware firmware(exampleDevice(DeviceKind::Infrared));
  firmware.receive(enter(0));
  firmware.receive(packet(PKT_SET, CMD_IR_SET_CALIB_X, 0, Bytes(kBlockSize, 0x5A)));
  firmware.setFault({Fault::DiesAfterPackets, 1});
  firmware.receive(kGetVersion);
  EXPECT_EQ(replyOf(firmware)[kCommandAt], CMD_GET_VERSION);
  for (int life = 0; life < 2; ++life) {
    EXPECT_EQ(firmware.receive(kGetVersion), TransferResult::Gone);
    firmware.powerCycle();
    EXPECT_EQ(replyOf(firmware), kNothing);
    EXPECT_FALSE(firmware.inCommandMode());
    EXPECT_EQ(imageOf(firmware.stored().calibParams.X)[0], 0x5A);
    EXPECT_EQ(firmware.receive(enter(0)), TransferResult::Done);
  }
  EXPECT_EQ(firmware.receive(kGetVersion), TransferResult::Gone);
  firmware.setFault({});
  EXPECT_EQ(firmware.receive(kGetVersion), TransferResult::Gone) << "until it is plugged in again";
}

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
      // Each reply has flipped bits, others every time and the same from the same seed.
      const auto garbled = replyOf(touchscreen.firmware);
      EXPECT_NE(garbled, replyOf(touchscreen.firmware));
      touchscreen.firmware.setFault({GarbledReply, seed});
      const auto first = replyOf(touchscreen.firmware);
      touchscreen.firmware.setFault({GarbledReply, seed});
      EXPECT_EQ(replyOf(touchscreen.firmware), first);
      touchscreen.firmware.setFault({});
      EXPECT_NE(replyOf(touchscreen.firmware), first);
    }
}

}  // namespace
}  // namespace touchpanel::firmware
