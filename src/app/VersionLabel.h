#pragma once

namespace touchpanel {

/// The text of the version label: a build constant, neither the driver's version nor the system's.
inline constexpr char kDriverVersion[] = "15.1.3.0004";

}  // namespace touchpanel
