#pragma once

#include "driver/service/CalibrationReader.h"
#include "platform/Diagnostics.h"
#include "platform/Notices.h"
#include "platform/OutputDevices.h"
#include "platform/Timers.h"
#include "platform/TouchInputs.h"
#include "platform/TouchThread.h"

namespace touchpanel::driver {

/// The world outside the service, none of it owned.
struct ServicePorts {
  TouchThread& touches;
  TouchInputs& inputs;
  OutputDevices& outputs;
  Timers& timers;
  Notices& notices;
  CalibrationReader& calibrations;
  Diagnostics& diagnostics;
};

}  // namespace touchpanel::driver
