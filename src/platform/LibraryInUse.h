#pragma once

#include <string>

namespace touchpanel {

/// A library that the program runs on, for the About sheet and the diagnostics report.
struct LibraryInUse {
  std::string name;
  std::string licence;
  std::string version = {};  ///< as the library itself tells it; empty when it does not
};

/// The usual text of a version in three numbers.
template <typename Number>
std::string versionText(Number major, Number minor, Number micro) {
  return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(micro);
}

}  // namespace touchpanel
