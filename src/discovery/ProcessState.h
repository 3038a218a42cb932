#pragma once

#include "platform/RunLoop.h"
#include "platform/Usb.h"
#include "protocol/DeviceContext.h"

namespace touchpanel {

/// The few process-wide variables, made once where the program is put together and passed on.
struct ProcessState {
  UsbDeviceInterface* devIntf = nullptr;   ///< the device being worked on; not owned
  RunLoopSource* runLoopSource = nullptr;  ///< the notification source now in the run loop; not owned
  _DEVICT_CONTEXT DeviceContext{};         ///< what a reset writes: all zero, filled by nothing
};

}  // namespace touchpanel
