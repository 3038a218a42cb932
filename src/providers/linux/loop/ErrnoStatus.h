#pragma once

#include "platform/Status.h"

namespace touchpanel {

/// The status of an errno that a call on a device node failed with. Never success; an unknown code is
/// kErrorGeneral.
Status statusOfErrno(int code);

}  // namespace touchpanel
