#include <algorithm>
#include <climits>

#include <gtest/gtest.h>

#include "platform/HexText.h"
#include "protocol/Packet.h"
#include "protocol/ReplyText.h"

namespace touchpanel {
namespace {

using std::string_literals::operator""s;

/// What buildPkg writes for a read of properties, in hexadecimal, and a check that it writes nothing else.
std::string built(std::int32_t length) {
  constexpr std::uint8_t kUntouched = 0xEE;
  PacketBuffer out;
  out.fill(kUntouched);
  const auto size = buildPkg(PKT_GET, CMD_GET_PROPS, 1, length, nullptr, out.data());
  EXPECT_TRUE(std::all_of(out.begin() + size, out.end(), [](auto byte) { return byte == kUntouched; }));
  std::string text;
  for (std::size_t i = 0; i < size; ++i) text += hexText(out[i], 2);
  return text;
}

TEST(Packet, WithANegativeLengthIsCutWhereItsChecksumFalls) {
  const char* packets[] = {"aa0230010133", "aa02300031", "aa023031", "aa0201", "aaff", "55"};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(built(-i), packets[i]);
}

TEST(Packet, OfALengthThatFitsNoPacketIsNotWritten) {
  for (const std::int32_t length : {59, 256, INT_MAX, -6, -7, INT_MIN})
    EXPECT_EQ(built(length), "") << length;
}

PacketBuffer replyWith(const std::string& payload) {
  PacketBuffer reply{};
  reply[kLengthAt] = static_cast<std::uint8_t>(payload.size() + 1);
  std::copy(payload.begin(), payload.end(), reply.begin() + kPayloadAt);
  return reply;
}

TEST(ReplyText, OfAVersionIsWrittenForTwoLengthsOnly) {
  const std::pair<std::string, const char*> rows[] = {{"\x05\x02"s, "2.5"},
                                                      {"\xFF\xFF"s, "255.255"},
                                                      {"\x05\x02\x0C\x00"s, "2.5.0012"},
                                                      {"\xFF\xFE\x34\x12"s, "254.255.4660"},
                                                      {"\xFF\xFF\xFF\xFF"s, "255.255.65535"}};
  for (const auto& [payload, expected] : rows) {
    char text[20] = "before";
    formatFirmwareVersion(replyWith(payload), text);
    EXPECT_STREQ(text, expected);
  }
  for (int length = 0; length < 256; ++length) {
    if (length == 3 || length == 5) continue;
    char text[20] = "before";
    auto reply = replyWith("\x05\x02\x0C\x01");
    reply[kLengthAt] = static_cast<std::uint8_t>(length);
    formatFirmwareVersion(reply, text);
    EXPECT_STREQ(text, "before") << length;
  }
}

TEST(ReplyText, OfABarCodeIsMadeOfItsFields) {
  const std::pair<std::string, std::string> rows[] = {
      {"\x41\x01\x42\x02\x43\x44\x03\x45\x04\x00\x00\x05\x06\x39\x30\x00\x00"s,
       "A01B02C-D3E-04-0506-0012345"},
      {"\x41\x01\x42\x02\x43\x44\x03\x45\x04\x00\x00\x05\x06\xFF\xFF\xFF\xFF"s,
       "A01B02C-D3E-04-0506--0000001"},
      // The longest there is: every number at its widest fills 38 of the 40 bytes.
      {"\x41\xFF\x42\xFF\x43\x44\xFF\x45\xFF\x63\x63\xFF\xFF\x00\x00\x00\x80"s,
       "A255B255C-D255E-255-255255--2147483648"},
      {std::string(17, '\0'), "\0"s + "00\0"s + "00\0-\0"s + "0\0-00-0000-0000000"s}};
  for (const auto& [payload, expected] : rows) {
    char text[40] = {};
    formatBarCode(replyWith(payload), text);
    EXPECT_EQ(std::string(text, expected.size()), expected);
    EXPECT_EQ(text[expected.size()], '\0');
  }
}

}  // namespace
}  // namespace touchpanel
