#pragma once

#include "platform/TouchInputs.h"
#include "providers/linux/input/FrameAssembler.h"

struct libevdev;

namespace touchpanel {

/// What an input node says about itself by the event codes that it has.
struct NodeReports {
  InputReports touches = InputReports::Nothing;
  bool isPointing = false;  ///< it touches or points, so the desktop is not to hear it
  AxisRange x;              ///< of the axes that touches are reported on
  AxisRange y;
  bool operator==(const NodeReports&) const = default;
};

/// What `device` has:
///
///     MultiTouchB    ABS_MT_POSITION_*, ABS_MT_SLOT
///     MultiTouchA    ABS_MT_POSITION_*
///     Pen            ABS_X, ABS_Y, BTN_TOUCH and a pen or stylus
///     SingleTouch    ABS_X, ABS_Y, BTN_TOUCH
///     AbsoluteMouse  ABS_X, ABS_Y, BTN_LEFT
///     Nothing        anything else; that with BTN_LEFT and REL_X or ABS_X is pointing, too
///
/// Axes whose range has no extent do not count, as no place can be told from them.
NodeReports reportsOf(const libevdev& device);

}  // namespace touchpanel
