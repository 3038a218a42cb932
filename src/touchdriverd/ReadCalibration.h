#pragma once

#include "driver/service/CalibrationReader.h"
#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform/Usb.h"

namespace touchpanel::driver {

/// Opens `device`, reads all its blocks over `held` as its kind `productId` does, and closes it. Blocks
/// for about half a second, and up to 25 s longer while another program has it open. kErrorNoDevice when it
/// goes, kErrorExclusiveAccess when it never gets free, kErrorInputOutput when it does not answer,
/// kErrorUnsupported for a product that holds nothing.
Status readCalibration(UsbDeviceInterface& device, std::uint16_t productId, HeldCalibration& held,
                       Clock& clock, Diagnostics& diagnostics);

}  // namespace touchpanel::driver
