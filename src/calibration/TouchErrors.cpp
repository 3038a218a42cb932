#include "calibration/TouchErrors.h"

#include <algorithm>
#include <cmath>

namespace touchpanel {
namespace {

/// In a unit that is `perPointX` and `perPointY` to a point.
TouchErrors errorsOf(std::span<const LandedTouch> touches, double perPointX, double perPointY) {
  TouchErrors errors;
  for (const auto& [meant, landed] : touches) {
    const double each = std::hypot((landed.x - meant.x) * perPointX, (landed.y - meant.y) * perPointY);
    errors.mean += each / static_cast<double>(touches.size());
    errors.largest = std::max(errors.largest, each);
  }
  return errors;
}

}  // namespace

TouchErrors errorsInPixels(std::span<const LandedTouch> touches, const SurfaceScale& scale) {
  return errorsOf(touches, scale.pixelsPerPoint, scale.pixelsPerPoint);
}

std::optional<TouchErrors> errorsInMillimetres(std::span<const LandedTouch> touches,
                                               const SurfaceScale& scale) {
  const auto& mm = scale.millimetres;
  if (!mm || !(mm->perPointX > 0 && mm->perPointY > 0)) return std::nullopt;
  return errorsOf(touches, mm->perPointX, mm->perPointY);
}

}  // namespace touchpanel
