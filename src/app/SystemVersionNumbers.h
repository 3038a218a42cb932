#pragma once

#include <cstdint>

#include "platform/Diagnostics.h"
#include "platform/SystemVersion.h"

namespace touchpanel {

/// The running system's version in up to three numbers; a null output is skipped. Systems up to 10.3 answer it
/// only as binary-coded decimal, of which the minor digit is deliberately not used: `minor` is then 0. When
/// the system does not answer, one diagnostic line is printed and every output is 0.
void getSystemVersion(SystemVersion& system, Diagnostics& diagnostics, std::uint32_t* major,
                      std::uint32_t* minor, std::uint32_t* bugFix);

}  // namespace touchpanel
