#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace touchpanel::testing {

inline std::string hexadecimal(std::span<const std::uint8_t> bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const auto byte : bytes) {
    text.push_back(kDigits[byte >> 4]);
    text.push_back(kDigits[byte & 15]);
  }
  return text;
}

}  // namespace touchpanel::testing
