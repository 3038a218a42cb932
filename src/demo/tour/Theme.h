#pragma once

#include <QPalette>

namespace touchpanel::demo {

/// Shows the whole program in a dark theme for as long as it lives, as a desktop with one would.
class DarkTheme {
 public:
  DarkTheme();
  ~DarkTheme();
  DarkTheme(const DarkTheme&) = delete;
  DarkTheme& operator=(const DarkTheme&) = delete;

 private:
  QPalette before_;
};

}  // namespace touchpanel::demo
