#pragma once

#include <string>

#include "demo/tour/Stage.h"

namespace touchpanel::demo {

/// Opens the settings sheet, chooses a grid of `targets`, 4 or 25, and accepts.
void chooseCalibrationMode(Stage& stage, int targets);
/// Changes settings and applies them, tells the messages that every driver instance got, and goes back to the
/// default settings.
std::string applySettings(Stage& stage);

}  // namespace touchpanel::demo
