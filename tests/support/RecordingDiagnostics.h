#pragma once

#include <string>
#include <vector>

#include "platform/Diagnostics.h"

namespace touchpanel::testing {

class RecordingDiagnostics final : public Diagnostics {
 public:
  void line(std::string_view text) override { lines.emplace_back(text); }
  std::vector<std::string> lines;
};

}  // namespace touchpanel::testing
