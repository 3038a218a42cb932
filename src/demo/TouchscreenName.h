#pragma once

#include <QString>

#include "providers/simulated/SimulatedTouchscreens.h"

namespace touchpanel::demo {

/// The simulated touchscreen's name in the user's language.
QString shownName(const simulated::SimulatedTouchscreen& touchscreen);

}  // namespace touchpanel::demo
