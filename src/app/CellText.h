#pragma once

#include <string>
#include <string_view>

#include "platform/Value.h"

namespace touchpanel {

/// How the value under `key` of a device entry reads: texts as they may be shown, numbers, locations in
/// hexadecimal, since two identical touchscreens differ only there. Empty for anything else.
std::string cellText(std::string_view key, const Value& value);

}  // namespace touchpanel
