#include "discovery/StatusText.h"

#include <cstdint>
#include <cstdio>
#include <string_view>

namespace touchpanel {

std::string withStatus(const char* format, Status status) {
  constexpr std::string_view kPlace = "%08x";
  char digits[sizeof "00000000"];
  std::snprintf(digits, sizeof digits, kPlace.data(), static_cast<std::uint32_t>(status));
  std::string text = format;
  return text.replace(text.find(kPlace), kPlace.size(), digits);
}

}  // namespace touchpanel
