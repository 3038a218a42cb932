#pragma once

#include "platform/Status.h"

namespace touchpanel {

/// The one translation of libusb's codes: 0 and above is success, an unknown code is kErrorGeneral.
Status statusOfLibusb(int code);

/// The same for an errno of the calls made beside libusb, on a device's node. Never success.
Status statusOfErrno(int code);

}  // namespace touchpanel
