#pragma once

#include "driver/service/CalibrationReader.h"
#include "platform/Diagnostics.h"
#include "platform/PointerDevices.h"
#include "platform/Timers.h"
#include "platform/TouchInputs.h"

namespace touchpanel::driver {

/// The world outside the service, none of it owned.
struct ServicePorts {
  TouchInputs& inputs;
  PointerDevices& pointers;
  Timers& timers;
  CalibrationReader& calibrations;
  Diagnostics& diagnostics;
};

}  // namespace touchpanel::driver
