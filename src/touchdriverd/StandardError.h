#pragma once

#include <cstdio>
#include <string>

#include "platform/Diagnostics.h"

namespace touchpanel::driver {

/// Diagnostics to standard error, unless `wanted` is false. Each line is one write, so lines of several
/// threads do not mix.
class StandardError final : public Diagnostics {
 public:
  explicit StandardError(bool wanted) : wanted_(wanted) {}
  void line(std::string_view text) override {
    if (!wanted_) return;
    const auto whole = std::string(text) + "\n";
    std::fwrite(whole.data(), 1, whole.size(), stderr);
  }

 private:
  bool wanted_;
};

}  // namespace touchpanel::driver
