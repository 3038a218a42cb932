#pragma once

#include <string>

#include "demo/tour/Stage.h"

namespace touchpanel::demo {

/// Calibrates by touches alone, OK included, and compares how well the touchscreen hits before and after, on
/// points that were no targets.
std::string calibrateInfraredWith25Targets(Stage& stage);
std::string calibrateOpticalWith4Targets(Stage& stage);
/// Calibrates the touchscreen that keeps its calibration in a file, in a part of the screen that is then
/// spread over all of it.
std::string calibrateConfigurationOnlyInRegion(Stage& stage);

}  // namespace touchpanel::demo
