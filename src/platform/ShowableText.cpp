#include "platform/ShowableText.h"

#include <algorithm>
#include <cstdint>

namespace touchpanel {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

struct Range {
  char32_t first, last;
};

/// Unicode's control and format characters, separators of lines, surrogates, private use and noncharacters.
constexpr Range kUnshowable[] = {
    {0x00, 0x1F},       {0x7F, 0x9F},       {0xAD, 0xAD},       {0x0600, 0x0605},   {0x061C, 0x061C},
    {0x06DD, 0x06DD},   {0x070F, 0x070F},   {0x180E, 0x180E},   {0x200B, 0x200F},   {0x2028, 0x202E},
    {0x2060, 0x206F},   {0xD800, 0xF8FF},   {0xFDD0, 0xFDEF},   {0xFEFF, 0xFEFF},   {0xFFF0, 0xFFFB},
    {0xFFFE, 0xFFFF},   {0x110BD, 0x110CD}, {0x13430, 0x1345F}, {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A},
    {0x1FFFE, 0x1FFFF}, {0x2FFFE, 0x2FFFF}, {0xE0000, 0xE0FFF}, {0xEFFFE, 0x10FFFF}};

bool isShowable(char32_t character) {
  return std::ranges::none_of(
      kUnshowable, [&](const Range& range) { return range.first <= character && character <= range.last; });
}

/// One character and the bytes that it takes; no bytes where `text` does not begin with a whole, shortest
/// form of one.
struct Character {
  char32_t value = 0;
  std::size_t size = 0;
};

Character firstOf(std::string_view text) {
  const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(text[at]); };
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const std::uint8_t lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t size = lead >> 5 == 0x06 ? 2 : lead >> 4 == 0x0E ? 3 : lead >> 3 == 0x1E ? 4 : 0;
  if (size == 0 || text.size() < size) return {};
  char32_t value = lead & (0x7FU >> size);
  for (std::size_t at = 1; at < size; ++at) {
    if (byte(at) >> 6 != 0x02) return {};
    value = value << 6 | (byte(at) & 0x3FU);
  }
  return value < kSmallest[size] || value > 0x10FFFF ? Character{} : Character{value, size};
}

}  // namespace

std::string showableText(std::string_view fromDevice) {
  std::string shown;
  while (!fromDevice.empty()) {
    const auto [character, size] = firstOf(fromDevice);
    shown += size > 0 && isShowable(character) ? fromDevice.substr(0, size) : kReplacement;
    fromDevice.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return shown;
}

}  // namespace touchpanel
