#include <random>

#include <gmock/gmock.h>

#include "firmware/Firmware.h"

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

}  // namespace
}  // namespace touchpanel::firmware
