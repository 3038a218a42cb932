#pragma once

#include <cstddef>
#include <deque>
#include <string>

#include "platform/Diagnostics.h"

namespace touchpanel {

/// Passes every line on at once and remembers the last 200, for a diagnostics report.
class RecentDiagnostics final : public Diagnostics {
 public:
  static constexpr std::size_t kKept = 200;

  /// `next` is not owned and must outlive this.
  explicit RecentDiagnostics(Diagnostics& next) : next_(next) {}

  void line(std::string_view text) override {
    next_.line(text);
    if (lines_.size() == kKept) lines_.pop_front();
    lines_.emplace_back(text);
  }

  /// Oldest first.
  const std::deque<std::string>& lines() const { return lines_; }

 private:
  Diagnostics& next_;
  std::deque<std::string> lines_;
};

}  // namespace touchpanel
