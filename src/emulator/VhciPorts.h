#pragma once

#include <optional>
#include <string_view>

namespace touchpanel::emulator {

/// The port that a touchscreen can be plugged into, from the text of the kernel's list of virtual ports: the
/// first free one for devices below super speed, or `wanted` if that one is free. Nothing when none is.
std::optional<int> freeVhciPort(std::string_view status, std::optional<int> wanted);

}  // namespace touchpanel::emulator
