#pragma once

#include <cstdint>
#include <span>

#include "platform/Monitors.h"

namespace touchpanel {

/// Maker, model and serial number in the base block (the first 128 bytes) of an EDID; all empty when there is no valid
/// one. Texts of the display descriptors come before numbers, as desktops have it that know monitors by these three.
/// Source: VESA Enhanced EDID Standard, release A2, section 3.
Monitor::Edid readEdid(std::span<const std::uint8_t> block);

}  // namespace touchpanel
