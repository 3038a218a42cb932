#pragma once

#include <deque>
#include <string>
#include <vector>

#include "discovery/DeviceEntry.h"
#include "platform/Registry.h"

namespace touchpanel {

/// Something with a version: the program, the system, a library.
struct NamedVersion {
  std::string name;
  std::string version;
};

/// What must not leave the machine, wherever it may turn up; empty where it is not known.
struct PrivateWords {
  std::string homePath;
  std::string userName;
  std::string hostName;
};

/// What a report is made from.
struct DiagnosticsSources {
  std::vector<NamedVersion> versions;
  const DeviceListArray& devices;
  Registry& registry;
  const std::deque<std::string>& lines;  ///< the last diagnostic lines, oldest first
  PrivateWords privateWords;
};

/// A text to send to whoever helps: versions, the listed touchscreens with their ids and what their driver
/// instances publish, and the diagnostic lines, with private words replaced. One value a line, '\n' at each
/// line's end. Asks the registry once for each touchscreen, so that it can block as long as a registry can.
std::string diagnosticsReport(const DiagnosticsSources& sources);

}  // namespace touchpanel
