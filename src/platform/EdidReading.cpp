#include "platform/EdidReading.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string>

#include "platform/HexText.h"

namespace touchpanel {
namespace {

constexpr std::size_t kBlock = 128;
constexpr std::array<std::uint8_t, 8> kHeader{0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0};
constexpr std::size_t kMaker = 8, kModel = 10, kSerial = 12;
constexpr std::size_t kDescriptors[] = {54, 72, 90, 108};
constexpr std::uint8_t kSerialText = 0xFF, kNameText = 0xFC;
constexpr std::size_t kTextStart = 5, kTextLength = 13;

using Block = std::span<const std::uint8_t>;

bool isValid(Block block) {
  return block.size() >= kBlock && std::equal(kHeader.begin(), kHeader.end(), block.begin()) &&
         std::accumulate(block.begin(), block.begin() + kBlock, 0U) % 256 == 0;
}

/// Three letters of five bits, 1 is A.
std::string makerIn(Block block) {
  const unsigned bits = (unsigned{block[kMaker]} << 8U) | block[kMaker + 1];
  std::string maker;
  for (const unsigned shift : {10U, 5U, 0U}) maker += static_cast<char>('@' + ((bits >> shift) & 31U));
  return maker;
}

/// The text of the first descriptor of that kind: it ends with a line feed and is padded with spaces.
std::string textIn(Block block, std::uint8_t kind) {
  for (const auto at : kDescriptors) {
    const auto entry = block.subspan(at, kTextStart + kTextLength);
    if (entry[0] != 0 || entry[1] != 0 || entry[3] != kind) continue;
    std::string text;
    for (const auto byte : entry.subspan(kTextStart)) {
      if (byte == '\n') break;
      if (byte < ' ' || byte > '~') return {};
      text += static_cast<char>(byte);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  }
  return {};
}

std::string textOr(const std::string& text, std::uint32_t number, std::size_t digits) {
  return text.empty() ? "0x" + hexText(number, digits) : text;
}

}  // namespace

Monitor::Edid readEdid(Block block) {
  if (!isValid(block)) return {};
  const auto byte = [&](std::size_t at, unsigned shift) { return unsigned{block[at]} << shift; };
  const unsigned model = byte(kModel, 0) | byte(kModel + 1, 8);
  const unsigned serial =
      byte(kSerial, 0) | byte(kSerial + 1, 8) | byte(kSerial + 2, 16) | byte(kSerial + 3, 24);
  return {makerIn(block), textOr(textIn(block, kNameText), model, 4),
          textOr(textIn(block, kSerialText), serial, 8)};
}

}  // namespace touchpanel
