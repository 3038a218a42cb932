#pragma once

#include <cstddef>
#include <vector>

#include "app/ControllerState.h"
#include "app/ScreenNumbers.h"
#include "app/ScreenView.h"
#include "contract/MonitorChoice.h"
#include "discovery/DriverChannel.h"
#include "platform/Controls.h"

namespace touchpanel {

/// The sheet that says which touchscreen lies on which screen. A choice is in force at once; Cancel takes all of them
/// back.
///
///     state    | shows on each monitor  | leaves on
///     ---------+------------------------+-----------------------------------------------------------------
///     closed   | nothing                | open() with a touchscreen listed: open
///     open     | its number, small      | startTouching(): touching; ok(), cancel(): closed
///     touching | its number, all over   | a captured touch, which puts its touchscreen on the marked screen,
///              |                        | Escape: open; a change of the monitors: open
class ScreenSheet final : private ScreenNumbersListener {
 public:
  struct Ports {
    Window& sheet;
    Window& parent;
    Sheets& sheets;
    StatusLine& statusLine;
    Registry& registry;
    Monitors& monitors;
    Screen& screen;
    ScreenView& view;
  };
  ScreenSheet(const ControllerState& state, DriverChannel& driver, const Ports& ports)
      : state_(state), driver_(driver), ports_(ports), numbers_(ports.screen, *this) {}

  void open();
  /// Marks a touchscreen or a screen; nothing outside what is shown.
  void markTouchscreen(std::size_t index);
  void markScreen(std::size_t index);
  /// Puts the marked touchscreen on the marked screen.
  void assign();
  /// Has the user touch the marked screen; whichever touchscreen captures that lies on it.
  void startTouching();
  void ok();
  void cancel();
  /// The monitors may have changed.
  void monitorsChanged();

 private:
  /// A listed touchscreen, and what it was on when the sheet was opened.
  struct Listed {
    DeviceEntry entry;
    Dictionary before;
  };
  void released() override;
  void escaped() override;
  void setCapture(bool on);
  void stopTouching();
  void show();
  void put(const Listed& listed);
  /// Whether the driver instance took the choice.
  Status choose(const DeviceEntry& entry, const std::string& identity, const std::string& name);
  void close();

  const ControllerState& state_;
  DriverChannel& driver_;
  Ports ports_;
  ScreenNumbers numbers_;
  std::vector<Listed> listed_;  ///< empty while the sheet is closed
  ShownScreens shown_;
  bool isTouching_ = false;
};

}  // namespace touchpanel
