#pragma once

#include <optional>
#include <string>

#include "providers/linux/dbus/BusConnection.h"

namespace touchpanel::driver {

/// How the service is to run.
struct Options {
  Bus bus = Bus::System;
  std::string stateDirectory;
  bool verbose = false;
};

/// Reads the command line. Nothing, with `exitStatus` set and what there was to say printed, when the program
/// is to end at once: after --help and --version, or because of an option that it does not know.
std::optional<Options> parseOptions(int argc, char** argv, int& exitStatus);

}  // namespace touchpanel::driver
