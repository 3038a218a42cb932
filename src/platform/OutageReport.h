#pragma once

#include <string>
#include <string_view>

#include "platform/Diagnostics.h"

namespace touchpanel {

/// Reports the beginning and the end of one outage, each once, however often the failing call is repeated.
class OutageReport {
 public:
  explicit OutageReport(Diagnostics& diagnostics) : diagnostics_(diagnostics) {}

  void begin(std::string_view text) {
    if (current_ == text) return;
    current_ = text;
    diagnostics_.line(current_);
  }
  void end(std::string_view text) {
    if (current_.empty()) return;
    current_.clear();
    diagnostics_.line(text);
  }
  bool isUnderWay() const { return !current_.empty(); }

 private:
  Diagnostics& diagnostics_;
  std::string current_;
};

}  // namespace touchpanel
