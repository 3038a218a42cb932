#pragma once

#include <cstdint>

namespace touchpanel {

/// Identifies a touchscreen; its state is kept under this. Two of a kind differ in where they are plugged in.
struct TouchscreenIdentity {
  std::uint32_t locationId = 0;
  std::uint16_t productId = 0;
  bool operator==(const TouchscreenIdentity&) const = default;
};

}  // namespace touchpanel
