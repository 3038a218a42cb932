#pragma once

#include <string_view>

namespace touchpanel {

/// Where the logic's one-line diagnostics go: standard output, in a real program.
class Diagnostics {
 public:
  virtual ~Diagnostics() = default;
  /// Prints one line. `text` comes without its line end.
  virtual void line(std::string_view text) = 0;
};

}  // namespace touchpanel
