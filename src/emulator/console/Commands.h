#pragma once

#include <string>
#include <string_view>

#include "emulator/console/Session.h"
#include "emulator/console/Touchscreens.h"

namespace touchpanel::emulator {

/// A line understood: nothing to do (empty or a remark), an error, the end, or a plan.
struct ParsedCommand {
  bool nothing = false;
  bool quit = false;
  std::string error;
  Plan plan;
};

/// Understands one line. The plan works on `touchscreens`, which must outlive it; gestures are timed from
/// `now`.
ParsedCommand parseCommand(std::string_view line, Touchscreens& touchscreens, Time now);

/// All commands with their arguments, one to a line, for --help.
std::string commandHelp();

}  // namespace touchpanel::emulator
