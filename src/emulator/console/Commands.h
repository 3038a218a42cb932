#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "emulator/console/Session.h"
#include "emulator/console/Touchscreens.h"

namespace touchpanel::emulator {

/// What one line asks for; nothing for a line that is empty or a remark. The plan works on `touchscreens`, which must
/// outlive it; gestures are timed from `now`. Throws WordError.
std::optional<Plan> planFor(std::string_view line, Touchscreens& touchscreens, Time now);

/// All commands with their arguments, one to a line, for --help.
std::string commandHelp();

}  // namespace touchpanel::emulator
