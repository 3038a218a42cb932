#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "platform/EdidReading.h"

namespace touchpanel {
namespace {

/// The base block of a monitor DEL with product code 0xA0B8 and serial number 0x01020304.
std::vector<std::uint8_t> block(std::string_view name, std::string_view serial) {
  std::vector<std::uint8_t> bytes(128);
  std::ranges::fill(bytes.begin() + 1, bytes.begin() + 7, std::uint8_t{0xFF});
  const std::vector<std::uint8_t> numbers{0x10, 0xAC, 0xB8, 0xA0, 4, 3, 2, 1};
  std::ranges::copy(numbers, bytes.begin() + 8);
  const auto describe = [&](std::size_t at, std::uint8_t kind, std::string_view text) {
    bytes[at + 3] = kind;
    std::ranges::fill(bytes.begin() + static_cast<int>(at) + 5, bytes.begin() + static_cast<int>(at) + 18,
                      ' ');
    std::ranges::copy(text, bytes.begin() + static_cast<int>(at) + 5);
  };
  if (!name.empty()) describe(72, 0xFC, name);
  if (!serial.empty()) describe(108, 0xFF, serial);
  bytes[127] = static_cast<std::uint8_t>(256 - std::accumulate(bytes.begin(), bytes.end(), 0U) % 256);
  return bytes;
}

TEST(EdidReading, ReadsMakerModelAndSerialNumberAndNothingFromADamagedBlock) {
  EXPECT_EQ(readEdid(block("U2415\n", "7MT0167B\n")), (Monitor::Edid{"DEL", "U2415", "7MT0167B"}));
  EXPECT_EQ(readEdid(block("Thirteen char", "")), (Monitor::Edid{"DEL", "Thirteen char", "0x01020304"}));
  EXPECT_EQ(readEdid(block("", "bad\x01")), (Monitor::Edid{"DEL", "0xa0b8", "0x01020304"}));
  auto damaged = block("U2415\n", "");
  damaged[75] ^= 1;
  EXPECT_EQ(readEdid(damaged), Monitor::Edid());
  damaged.resize(127);
  EXPECT_EQ(readEdid(damaged), Monitor::Edid());
  EXPECT_EQ(readEdid({}), Monitor::Edid());
}

}  // namespace
}  // namespace touchpanel
