#pragma once

#include <cstdint>
#include <string>

namespace touchpanel {

/// Identifies a touchscreen. Two of a kind differ in where they are plugged in.
struct TouchscreenIdentity {
  std::uint32_t locationId = 0;  ///< counts the system's buses, whose numbers change with docks and restarts
  std::uint16_t productId = 0;
  std::string path = {};  ///< the same place by a name that lasts; empty where the system knows none
  bool operator==(const TouchscreenIdentity&) const = default;
};

}  // namespace touchpanel
