#pragma once

#include <string>

namespace touchpanel {

/// Where a program keeps what it learns on its own of this user's machine: $XDG_STATE_HOME, else ~/.local/state.
/// It need not exist. A user without a home directory gets one that nobody can make.
std::string userStateDirectory();

}  // namespace touchpanel
