#pragma once

#include <algorithm>
#include <cstdint>

#include "contract/DriverProperties.h"

namespace touchpanel::driver {

/// A place in logical units, 0..32767 on both axes, y downwards.
struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const Point&) const = default;
};

/// Logical units per unit of an "area" or "range" setting: a 1024th of the screen, about two pixels of a
/// screen that is 1920 wide. The default of 5 is then a tremor of some 2.5 mm on a 24-inch screen.
inline constexpr std::int32_t kLogicalPerAreaUnit = (kLogicalMaximum + 1) / 1024;

constexpr std::int32_t logicalFromArea(std::int32_t area) { return area * kLogicalPerAreaUnit; }

/// Whether `a` lies in the square that reaches `range` logical units to each side of `b`.
constexpr bool isWithin(Point a, Point b, std::int32_t range) {
  return a.x - b.x <= range && b.x - a.x <= range && a.y - b.y <= range && b.y - a.y <= range;
}

}  // namespace touchpanel::driver
