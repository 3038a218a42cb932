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

/// The place of the unturned glass at which `units` of a picture lie that is turned by `turn` quarter turns clockwise;
/// both in logical units. Without a turn they are the same numbers.
Point onGlass(const Point& units, std::int32_t turn);
/// The reverse: where in the picture a place of the glass lies.
Point inPicture(const Point& glass, std::int32_t turn);

}  // namespace touchpanel
