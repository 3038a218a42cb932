#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace touchpanel {

/// What a Wayland compositor says of its outputs and Qt does not pass on.
struct WaylandOutputs {
  struct Output {
    std::int32_t turn = 0;     ///< 0..3 quarter turns clockwise
    std::int32_t widthMm = 0;  ///< as it is built
    std::int32_t heightMm = 0;
  };
  std::map<std::string, Output> outputs;  ///< by connector; without those whose name it does not say
  bool placesPointers = false;            ///< as in Desktop
  bool placesTouches = false;
};

/// Asks the compositor that WAYLAND_DISPLAY leads to, over a connection of its own; nothing when there is none. Blocks
/// for two round trips.
std::optional<WaylandOutputs> waylandOutputs();

}  // namespace touchpanel
