#pragma once

#include <xcb/xcb.h>

#include "platform/Monitors.h"

namespace touchpanel {

/// What the X server says of its monitors by RANDR, without identities and names; of no monitors when it has no RANDR
/// 1.3. Blocks for some round trips.
Desktop desktopOnX(xcb_connection_t* connection);

/// Whether `event` says that the layout may be another one. `connection` must have been asked for such events.
bool isLayoutEvent(xcb_connection_t* connection, const xcb_generic_event_t& event);

}  // namespace touchpanel
