#pragma once

#include <cstdint>

namespace touchpanel {

/// Which touchscreen it is: state is kept under this, so that two of a kind are told apart by where they are
/// plugged in.
struct TouchscreenIdentity {
  std::uint32_t locationId = 0;
  std::uint16_t productId = 0;
  bool operator==(const TouchscreenIdentity&) const = default;
};

}  // namespace touchpanel
