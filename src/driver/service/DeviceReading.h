#pragma once

#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform/TouchscreenIdentity.h"
#include "platform/Usb.h"
#include "protocol/DeviceContext.h"

namespace touchpanel::driver {

/// Opens `device`, reads all its blocks over `context` as its kind `productId` does, and closes it. Blocks
/// for about half a second, and up to 25 s longer while another program has it open. kErrorNoDevice when it
/// goes, kErrorExclusiveAccess when it never gets free, kErrorInputOutput when it does not answer,
/// kErrorUnsupported for a product that holds nothing.
Status readCalibration(UsbDeviceInterface& device, std::uint16_t productId, _DEVICT_CONTEXT& context,
                       Clock& clock, Diagnostics& diagnostics);

}  // namespace touchpanel::driver
