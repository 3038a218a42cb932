#pragma once

#include <string>

namespace touchpanel {

/// A library that the program runs on, for the About sheet and the diagnostics report.
struct LibraryInUse {
  std::string name;
  std::string licence;
  std::string version = {};  ///< as the library itself tells it; empty when it does not
};

}  // namespace touchpanel
