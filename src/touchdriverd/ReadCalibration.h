#pragma once

#include "driver/service/CalibrationReader.h"
#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform/PropertyListFiles.h"
#include "platform/Usb.h"

namespace touchpanel::driver {

/// Opens `device`, reads all its blocks as its kind `productId` does, and closes it. Blocks for about half a second,
/// and up to 25 s longer while another program has it open. `held` is unchanged unless each block of the calibration
/// has been read: kErrorNoDevice when the device goes, kErrorExclusiveAccess when it never gets free,
/// kErrorInputOutput when it does not answer, kErrorUnsupported for a product that holds nothing.
Status readCalibration(UsbDeviceInterface& device, std::uint16_t productId, HeldCalibration& held,
                       Clock& clock, Diagnostics& diagnostics);

/// Reads the calibration of touchscreens without storage from the device configuration file at `path`. Blocks for the
/// disk. `held` is unchanged when there is none: kErrorNotFound without the file, kErrorBadArgument when parameters
/// are missing, else the error of the read.
Status readCalibration(PropertyListFiles& files, const std::string& path, HeldCalibration& held);

}  // namespace touchpanel::driver
