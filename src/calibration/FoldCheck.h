#pragma once

#include "calibration/CubicMap.h"

namespace touchpanel {

/// A rectangle of raw touches.
struct RawArea {
  PlanePoint least;
  PlanePoint most;
};

/// True when `map` is not one to one on `area`: its Jacobian determinant changes its sign, vanishes or is not a
/// number at one of the points of a fine grid, or the image of the area's edge meets itself.
bool foldsOn(const CubicMap& map, const RawArea& area);

}  // namespace touchpanel
