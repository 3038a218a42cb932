#pragma once

#include <set>
#include <string>
#include <string_view>

#include "platform/Diagnostics.h"

namespace touchpanel {

/// Reports the beginning and the end of one outage. Each of its texts is reported once, however often the failing
/// calls are repeated, and in whatever order.
class OutageReport {
 public:
  explicit OutageReport(Diagnostics& diagnostics) : diagnostics_(diagnostics) {}

  void begin(std::string_view text) {
    if (said_.emplace(text).second) diagnostics_.line(text);
  }
  void end(std::string_view text) {
    if (said_.empty()) return;
    said_.clear();
    diagnostics_.line(text);
  }
  bool isUnderWay() const { return !said_.empty(); }

 private:
  Diagnostics& diagnostics_;
  std::set<std::string> said_;
};

}  // namespace touchpanel
