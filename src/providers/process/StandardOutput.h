#pragma once

#include "platform/Diagnostics.h"

namespace touchpanel {

/// Diagnostics to the process's standard output, each line written out at once so that a reader at the other
/// end of a pipe sees it when it happens.
class StandardOutput final : public Diagnostics {
 public:
  void line(std::string_view text) override;
};

}  // namespace touchpanel
