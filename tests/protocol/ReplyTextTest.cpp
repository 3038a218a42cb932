#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "protocol/ReplyText.h"

namespace touchpanel {
namespace {

PacketBuffer replyWith(std::string_view payload) {
  PacketBuffer reply{};
  reply[kLengthAt] = static_cast<std::uint8_t>(payload.size() + 1);
  std::copy(payload.begin(), payload.end(), reply.begin() + kPayloadAt);
  return reply;
}

TEST(FirmwareVersion, IsWrittenForTwoLengthsOnly) {
  struct Row {
    std::string payload;
    const char* text;
  };
  using std::string_literals::operator""s;
  const Row rows[] = {{"\x05\x02"s, "2.5"},
                      {"\xFF\xFF"s, "255.255"},
                      {"\x05\x02\x0C\x00"s, "2.5.0012"},
                      {"\x00\x00\x00\x00"s, "0.0.0000"},
                      {"\xFF\xFE\x34\x12"s, "254.255.4660"},
                      {"\xFF\xFF\xFF\xFF"s, "255.255.65535"}};
  for (const auto& row : rows) {
    char text[20] = "before";
    formatFirmwareVersion(replyWith(row.payload), text);
    EXPECT_STREQ(text, row.text);
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

TEST(BarCode, IsTheFieldsOfTheReply) {
  struct Row {
    std::string payload;
    std::string text;
  };
  using std::string_literals::operator""s;
  const Row rows[] = {{"\x41\x01\x42\x02\x43\x44\x03\x45\x04\x00\x00\x05\x06\x39\x30\x00\x00"s,
                       "A01B02C-D3E-04-0506-0012345"},
                      {"\x41\x01\x42\x02\x43\x44\x03\x45\x04\x00\x00\x05\x06\xFF\xFF\xFF\xFF"s,
                       "A01B02C-D3E-04-0506--0000001"},
                      // The longest there is: every number at its widest fills 38 of the 40 bytes.
                      {"\x41\xFF\x42\xFF\x43\x44\xFF\x45\xFF\x63\x63\xFF\xFF\x00\x00\x00\x80"s,
                       "A255B255C-D255E-255-255255--2147483648"},
                      {std::string(17, '\0'), "\0"s + "00\0"s + "00\0-\0"s + "0\0-00-0000-0000000"s}};
  for (const auto& row : rows) {
    char text[40] = {};
    formatBarCode(replyWith(row.payload), text);
    EXPECT_EQ(std::string(text, row.text.size()), row.text);
    EXPECT_EQ(text[row.text.size()], '\0');
  }
}

}  // namespace
}  // namespace touchpanel
