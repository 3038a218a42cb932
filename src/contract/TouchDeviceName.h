#pragma once

#include <cstdint>
#include <string>

#include "platform/HexText.h"

namespace touchpanel {

/// How the names of the devices begin that the driver service makes for the touchscreen at `locationId`.
inline std::string touchDeviceName(std::uint32_t locationId) { return "Touchscreen " + hexText(locationId); }

}  // namespace touchpanel
