#include "emulator/usbip/VhciPorts.h"

#include <sstream>
#include <string>

namespace touchpanel::emulator {

// One line to a port: hub ("hs" or "ss"), port, status, and things that do not matter here. The first line
// names the columns.
std::optional<VhciPort> freeVhciPort(std::string_view status, std::optional<int> wanted) {
  constexpr int kUnused = 4;
  std::istringstream lines{std::string(status)};
  int hubPort = 0;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream columns(line);
    std::string hub;
    int port = 0, state = 0;
    if (!(columns >> hub >> port >> state) || hub != "hs") continue;
    ++hubPort;
    if (state == kUnused && (!wanted || *wanted == port)) return VhciPort{port, hubPort};
  }
  return std::nullopt;
}

}  // namespace touchpanel::emulator
