#pragma once

#include "app/CalibrationWrites.h"
#include "app/CommandButtons.h"
#include "discovery/ContextStore.h"
#include "discovery/DriverChannel.h"

namespace touchpanel {

/// The commands that act on the selected touchscreen at once.
class DeviceCommands {
 public:
  /// `context` is what a reset writes.
  DeviceCommands(const Outlets& outlets, ControllerState& state, CommandButtons& buttons,
                 DriverChannel& driver, ContextStore& store, CalibrationWrites& writes,
                 _DEVICT_CONTEXT& context, StatusLine& statusLine)
      : outlets_(outlets),
        state_(state),
        buttons_(buttons),
        driver_(driver),
        store_(store),
        writes_(writes),
        context_(context),
        statusLine_(statusLine) {}

  /// Discards the device's calibration, in the driver and in the device. What is written is `context`,
  /// not the entry's: apart from the status everything goes out as it stands there. Blocks for the
  /// time of the write. The entry is that of a touchscreen without calibration whatever came of it.
  void Reset();

  /// Inverts "EnableTouch" of the selected device in every entry, but sends it to that device's driver only.
  /// Entries and title go back when the driver instance does not confirm it.
  void EnableTouch();

 private:
  const Outlets& outlets_;
  ControllerState& state_;
  CommandButtons& buttons_;
  DriverChannel& driver_;
  ContextStore& store_;
  CalibrationWrites& writes_;
  _DEVICT_CONTEXT& context_;
  StatusLine& statusLine_;
};

}  // namespace touchpanel
