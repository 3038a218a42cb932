#pragma once

#include <optional>
#include <span>

#include "platform/Geometry.h"
#include "platform/SurfaceScale.h"

namespace touchpanel {

/// One touch and the point that it was meant for, both in points of one surface.
struct LandedTouch {
  Point meant;
  Point landed;
  bool operator==(const LandedTouch&) const = default;
};

/// Distances between where touches were meant and where they landed. All 0 for no touches.
struct TouchErrors {
  double mean = 0;
  double largest = 0;
  bool operator==(const TouchErrors&) const = default;
};

/// Errors of `touches` in pixels.
TouchErrors errorsInPixels(std::span<const LandedTouch> touches, const SurfaceScale& scale);
/// The same in millimetres; none when the surface's size is unknown.
std::optional<TouchErrors> errorsInMillimetres(std::span<const LandedTouch> touches,
                                               const SurfaceScale& scale);

}  // namespace touchpanel
