#pragma once

#include <string>

#include "platform/Status.h"

namespace touchpanel {

/// `format`, which holds one "%08x", with the error code in its place.
std::string withStatus(const char* format, Status status);

}  // namespace touchpanel
