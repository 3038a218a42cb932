#pragma once

#include "driver/service/CalibrationReader.h"
#include "driver/service/PointerDevices.h"
#include "driver/service/Timers.h"
#include "driver/service/TouchInputs.h"
#include "platform/Diagnostics.h"

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
