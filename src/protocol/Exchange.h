#pragma once

#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform/Usb.h"
#include "protocol/DeviceContext.h"

namespace touchpanel {

/// What every exchange needs beside the device.
struct ExchangePorts {
  Clock& clock;
  Diagnostics& diagnostics;
};

/// Reads every block of `context` from an infrared touchscreen that the caller has opened and will close. A
/// block whose read fails keeps its content and prints one line. Returns 1 when the switches into command
/// mode and back to work mode both succeeded, else 0. Blocks for at least 360 ms, and longer by every retry.
int getIrTucParam(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports);

/// Opens the touchscreen, writes `DeviceConfig` and both polynomials, and closes it. Returns 1 when both mode
/// switches succeeded, also when a block write failed; 0 otherwise, silently when the device cannot be
/// opened. Blocks for at least 170 ms.
int saveDataToIrDevice(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context,
                       const ExchangePorts& ports);

/// The same for an optical touchscreen and both of its units. Blocks for at least 590 ms.
int getOptTucParam(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports);

/// The same for an optical touchscreen and both of its units. Blocks for at least 190 ms.
int saveDataToOptDevice(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context,
                        const ExchangePorts& ports);

}  // namespace touchpanel
