#pragma once

#include <optional>

namespace touchpanel {

/// How long a step of one point on a surface is.
struct SurfaceScale {
  struct Millimetres {
    double perPointX = 0;
    double perPointY = 0;
    bool operator==(const Millimetres&) const = default;
  };
  double pixelsPerPoint = 1;  ///< 2 on a screen of double density
  /// None when the screen's size is unknown. Values that are not above 0 count as none.
  std::optional<Millimetres> millimetres;
  bool operator==(const SurfaceScale&) const = default;
};

}  // namespace touchpanel
