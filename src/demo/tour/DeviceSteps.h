#pragma once

#include <string>

#include "demo/tour/Stage.h"

namespace touchpanel::demo {

/// Sees that all three kinds are in the table.
std::string listDevices(Stage& stage);
/// Resets the infrared touchscreen's calibration.
std::string resetInfrared(Stage& stage);
/// Unplugs the calibrated optical touchscreen and plugs it in again: it still hits.
std::string replugOptical(Stage& stage);
/// Unplugs one after the other; with the last one the panel ends.
std::string unplugAll(Stage& stage);

}  // namespace touchpanel::demo
