#pragma once

#include <cstdint>

#include "platform/Geometry.h"

namespace touchpanel {

/// The two values of "CalibrateMode" that have a grid; with any other no target is shown.
inline constexpr std::int32_t kFourTargets = 4;
inline constexpr std::int32_t kTwentyFiveTargets = 25;

/// Where targets lie in a box of size `box` whose lower-left corner is the origin. Everything is in single
/// precision and in the order in which it is written, down to a box of no size or a negative one.

/// Target `index` (0..3) of the four: upper left, upper right, lower left, lower right, a twentieth inside.
Point fourPointTarget(std::int32_t index, const Size& box);

/// The target in `row` (1 at the top to 5) and `column` (0 at the left to 4) of the twenty-five.
Point gridTarget(std::int32_t row, std::int32_t column, const Size& box);

/// `target` in the driver's logical units: 0..32767 on both axes, y from the top. A box of no size gives
/// values that are not numbers.
Point driverUnits(const Point& target, const Size& box);

/// The point of the box that `units` belong to: the reverse of driverUnits().
Point viewPoint(const Point& units, const Size& box);

}  // namespace touchpanel
