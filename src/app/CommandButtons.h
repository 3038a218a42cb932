#pragma once

#include "app/ControllerState.h"
#include "app/Outlets.h"

namespace touchpanel {

/// The main window's command buttons: which can be used, and what the touch button's title says.
class CommandButtons {
 public:
  CommandButtons(const Outlets& outlets, const ControllerState& state) : outlets_(outlets), state_(state) {}

  /// Everything but Reset follows the flag alone. Mapping is not touched: it stays disabled from start-up.
  void enableAll();
  /// Reset needs a selected device that holds a calibration.
  void enableReset();
  /// The title names what the next press does.
  void titleEnableTouch(bool touchIsEnabled);

 private:
  const Outlets& outlets_;
  const ControllerState& state_;
};

}  // namespace touchpanel
