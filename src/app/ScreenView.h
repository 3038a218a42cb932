#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Monitors.h"
#include "platform/StatusLine.h"

namespace touchpanel {

/// What the sheet shows that says which touchscreen lies on which screen. Screens count from 0; people see one more.
struct ShownScreens {
  struct Touchscreen {
    std::string name = {};   ///< may hold anything
    std::size_t screen = 0;  ///< it lies on
  };
  Desktop desktop = {};  ///< never without monitors
  std::vector<Touchscreen> touchscreens = {};
  std::size_t screen = 0;       ///< the one that is marked
  std::size_t touchscreen = 0;  ///< the one that is marked
  StatusMessage outcome = {};   ///< of the last change; without text before the first
};

class ScreenView {
 public:
  virtual ~ScreenView() = default;
  /// Replaces what is shown.
  virtual void show(const ShownScreens& screens) = 0;
};

}  // namespace touchpanel
