#pragma once

#include <string>

#include "demo/tour/Stage.h"

namespace touchpanel::demo {

/// Opens the About sheet and closes it.
std::string showAbout(Stage& stage);

}  // namespace touchpanel::demo
