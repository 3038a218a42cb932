#pragma once

#include <QPalette>

namespace touchpanel {

/// Palettes for showing every window in each kind of theme. The program itself follows the system's palette;
/// these stand in for it where a test or a demonstration must not depend on the desktop.
QPalette lightPalette();
QPalette darkPalette();
/// White and yellow on black.
QPalette highContrastPalette();

}  // namespace touchpanel
