#pragma once

#include <string>

namespace touchpanel {

/// The text of the version label: a build constant, neither the driver's version nor the system's.
std::string driverVersionText();

}  // namespace touchpanel
