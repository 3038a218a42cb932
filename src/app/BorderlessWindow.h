#pragma once

#include "platform/View.h"

namespace touchpanel {

/// How a window without a title bar answers: it takes the keyboard and becomes main all the same, since a
/// calibration needs its key events.
class BorderlessWindow final : public WindowBehaviour {
 public:
  bool canBecomeKeyWindow() const override { return true; }
  bool canBecomeMainWindow() const override { return true; }
};

}  // namespace touchpanel
