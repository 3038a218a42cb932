#pragma once

#include "platform/Status.h"

namespace touchpanel {

/// The status of a libusb code: 0 and above is success, an unknown code is kErrorGeneral.
Status statusOfLibusb(int code);

}  // namespace touchpanel
