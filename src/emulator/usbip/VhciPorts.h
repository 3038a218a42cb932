#pragma once

#include <optional>
#include <string_view>

namespace touchpanel::emulator {

/// A socket of a virtual host controller.
struct VhciPort {
  int port = 0;     ///< the number that the kernel's files know it by
  int hubPort = 0;  ///< its number at the controller's root hub, from 1
  bool operator==(const VhciPort&) const = default;
};

/// The port that a touchscreen can be plugged into, from the text of one controller's list of ports: the
/// first free one for devices below super speed, or `wanted` if that one is free. Nothing when none is.
std::optional<VhciPort> freeVhciPort(std::string_view status, std::optional<int> wanted);

}  // namespace touchpanel::emulator
