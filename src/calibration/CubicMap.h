#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "protocol/DeviceContext.h"

namespace touchpanel {

/// A point of the glass or of the screen, for computations in double precision.
struct PlanePoint {
  double x = 0;
  double y = 0;
};

/// Terms of a cubic in two variables, in the order 1, x, y, x^2, xy, y^2, x^3, x^2 y, x y^2, y^3, and how many of
/// them make a plane.
inline constexpr std::size_t kCubicTerms = 10;
inline constexpr std::size_t kLinearTerms = 3;

/// From raw touches to the driver's logical units: one cubic for each axis, in raw coordinates that are moved
/// by `centre` and divided by `radius` first.
class CubicMap {
 public:
  using Coefficients = std::array<double, kCubicTerms>;

  CubicMap() = default;
  CubicMap(const Coefficients& x, const Coefficients& y, PlanePoint centre, PlanePoint radius)
      : x_(x), y_(y), centre_(centre), radius_(radius) {}
  /// The map that a driver instance applies when it holds `params`.
  explicit CubicMap(const _CALIB_PARAMS& params);

  PlanePoint at(PlanePoint raw) const;
  /// Determinant of the Jacobian matrix at `raw`: 0 where the map is not one to one, of another sign where it is
  /// mirrored. Not a number when a coefficient is none.
  double jacobian(PlanePoint raw) const;
  /// The raw point that is mapped to `image`, by Newton's method from `start`; none when that does not get
  /// there.
  std::optional<PlanePoint> inverse(PlanePoint image, PlanePoint start) const;

 private:
  struct Slopes {
    PlanePoint x;  ///< of x' by x and by y
    PlanePoint y;
  };
  PlanePoint normalised(PlanePoint raw) const;
  Slopes slopes(PlanePoint raw) const;

  Coefficients x_{};
  Coefficients y_{};
  PlanePoint centre_;
  PlanePoint radius_{1, 1};
};

}  // namespace touchpanel
