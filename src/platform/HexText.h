#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace touchpanel {

/// The lowest `digits` hexadecimal digits of `value`, lower case, with leading zeros.
inline std::string hexText(std::uint32_t value, std::size_t digits = 8) {
  std::string text(digits, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value >>= 4)
    *digit = "0123456789abcdef"[value & 0xF];
  return text;
}

/// The same for a number whose type is signed, such as a Status.
inline std::string hexText(std::int32_t value) { return hexText(static_cast<std::uint32_t>(value)); }

}  // namespace touchpanel
