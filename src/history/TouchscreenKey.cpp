#include "history/TouchscreenKey.h"

#include <cstdint>

#include "platform/HexText.h"

namespace touchpanel {
namespace {

bool standsForItself(char character) {
  return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
         (character >= 'a' && character <= 'z') || character == '-';
}

std::string encoded(const std::string& barCode) {
  std::string text;
  for (const char character : barCode) {
    if (standsForItself(character))
      text += character;
    else
      text += '%' + hexText(static_cast<std::uint8_t>(character), 2);
  }
  return text;
}

}  // namespace

std::string touchscreenKeyOf(const Dictionary& entry) {
  const auto product = hexText(static_cast<std::uint32_t>(entry.integer(entry_key::kProductID)), 4);
  if (const auto barCode = barCodeOf(entry); !barCode.empty()) return product + "-sn-" + encoded(barCode);
  return product + "-at-" + hexText(entry.integer(entry_key::kLocationID));
}

}  // namespace touchpanel
