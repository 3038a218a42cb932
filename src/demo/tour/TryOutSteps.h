#pragma once

#include <string>

#include "demo/tour/Stage.h"

namespace touchpanel::demo {

/// Touches the test points of the try-out page with a finger on the infrared touchscreen. Out of the box it
/// misses them by much.
std::string tryOutBeforeCalibration(Stage& stage);
/// The same once it is calibrated: it hits them.
std::string tryOutAfterCalibration(Stage& stage);

}  // namespace touchpanel::demo
