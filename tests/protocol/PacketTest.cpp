#include <climits>

#include <gmock/gmock.h>

#include "GoldenExchanges.h"
#include "Hexadecimal.h"
#include "protocol/CommandTable.h"
#include "protocol/Packet.h"

namespace touchpanel {
namespace {

namespace golden = testing::golden;
constexpr std::uint8_t kUntouched = 0xEE;

/// The packet as `buildPkg` writes it, and a check that it writes nothing else.
std::string built(std::uint8_t kind, std::uint8_t command, std::uint8_t subCode, std::int32_t length,
                  const std::uint8_t* payload) {
  PacketBuffer out;
  out.fill(kUntouched);
  const auto size = buildPkg(kind, command, subCode, length, payload, out.data());
  EXPECT_TRUE(std::all_of(out.begin() + size, out.end(), [](auto byte) { return byte == kUntouched; }));
  return testing::hexadecimal(std::span(out).first(size));
}

std::string built(const Command& command, const std::uint8_t* payload) {
  return built(command.kind, command.code, command.subCode, command.requestPayload, payload);
}

TEST(Packet, OfEveryCommandOfBothFamiliesIsGolden) {
  const auto context = testing::patternContext();
  const auto config = imageOf(context.DeviceConfig);
  const auto x = imageOf(context.CalibParams.X);
  const auto y = imageOf(context.CalibParams.Y);
  const std::uint8_t enter[] = {1};
  const std::uint8_t leave[] = {0};
  struct Row {
    Command command;
    const std::uint8_t* payload;
    const char* packet;
  };
  const Row infrared[] = {
      {kInfraredCommands[0], enter, golden::kEnterUnit0},
      {kInfraredCommands[1], nullptr, golden::kGetScreenProps},
      {kInfraredCommands[2], nullptr, golden::kGetDeviceConfig},
      {kInfraredCommands[3], config.data(), golden::kSetDeviceConfig},
      {kInfraredCommands[4], nullptr, golden::kInfraredGetX},
      {kInfraredCommands[5], x.data(), golden::kInfraredSetX},
      {kInfraredCommands[6], nullptr, golden::kInfraredGetY},
      {kInfraredCommands[7], y.data(), golden::kInfraredSetY},
      {kInfraredCommands[8], nullptr, golden::kGetVersion},
      {kInfraredCommands[9], nullptr, golden::kInfraredGetBarCode},
      {kInfraredCommands[0], leave, golden::kLeaveUnit0},
  };
  const Row optical[] = {
      {kOpticalCommands[0], enter, golden::kEnterUnit0},
      {kOpticalCommands[1], enter, golden::kEnterUnit1},
      {kOpticalCommands[2], nullptr, golden::kGetScreenProps},
      {kOpticalCommands[3], nullptr, golden::kGetDeviceConfig},
      {kOpticalCommands[4], config.data(), golden::kSetDeviceConfig},
      {kOpticalCommands[5], nullptr, golden::kOpticalGetX},
      {kOpticalCommands[6], x.data(), golden::kOpticalSetX},
      {kOpticalCommands[7], nullptr, golden::kOpticalGetY},
      {kOpticalCommands[8], y.data(), golden::kOpticalSetY},
      {kOpticalCommands[9], nullptr, golden::kGetVersion},
      {kOpticalCommands[10], nullptr, golden::kOpticalGetBarCode},
      {kOpticalCommands[0], leave, golden::kLeaveUnit0},
      {kOpticalCommands[1], leave, golden::kLeaveUnit1},
  };
  for (const auto& row : infrared) EXPECT_EQ(built(row.command, row.payload), row.packet);
  for (const auto& row : optical) EXPECT_EQ(built(row.command, row.payload), row.packet);
  static_assert(std::size(infrared) == kInfraredCommands.size() + 1);
  static_assert(std::size(optical) == kOpticalCommands.size() + 2);
}

TEST(Packet, WithANegativeLengthIsCutWhereItsChecksumFalls) {
  const char* packets[] = {"aa02300031", "aa023031", "aa0201", "aaff", "55"};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(built(PKT_GET, CMD_GET_PROPS, 1, -1 - i, nullptr), packets[i]);
}

TEST(Packet, OfALengthThatFitsNoPacketIsNotWritten) {
  for (const std::int32_t length : {59, 256, INT_MAX, -6, -7, INT_MIN})
    EXPECT_EQ(built(PKT_SET, CMD_GET_PROPS, 0, length, nullptr), "") << length;
}

}  // namespace
}  // namespace touchpanel
