#include "calibration/FoldCheck.h"

#include <array>

namespace touchpanel {
namespace {

/// Steps along one side of the area.
constexpr std::size_t kSteps = 32;

PlanePoint pointOf(const RawArea& area, std::size_t column, std::size_t row) {
  const auto part = [](double from, double to, std::size_t step) {
    return from + (to - from) * static_cast<double>(step) / kSteps;
  };
  return {part(area.least.x, area.most.x, column), part(area.least.y, area.most.y, row)};
}

bool hasOneOrientation(const CubicMap& map, const RawArea& area) {
  const bool mirrored = map.jacobian(area.least) < 0;
  for (std::size_t row = 0; row <= kSteps; ++row)
    for (std::size_t column = 0; column <= kSteps; ++column) {
      const double jacobian = map.jacobian(pointOf(area, column, row));
      if (!(mirrored ? jacobian < 0 : jacobian > 0)) return false;
    }
  return true;
}

/// Positive when a, b and c turn to the left.
double turn(PlanePoint a, PlanePoint b, PlanePoint c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool cross(PlanePoint a, PlanePoint b, PlanePoint c, PlanePoint d) {
  return turn(a, b, c) * turn(a, b, d) < 0 && turn(c, d, a) * turn(c, d, b) < 0;
}

bool edgeMeetsItself(const CubicMap& map, const RawArea& area) {
  std::array<PlanePoint, 4 * kSteps> edge;
  for (std::size_t step = 0; step < kSteps; ++step) {
    edge[step] = map.at(pointOf(area, step, 0));
    edge[kSteps + step] = map.at(pointOf(area, kSteps, step));
    edge[2 * kSteps + step] = map.at(pointOf(area, kSteps - step, kSteps));
    edge[3 * kSteps + step] = map.at(pointOf(area, 0, kSteps - step));
  }
  for (std::size_t i = 0; i < edge.size(); ++i)
    for (std::size_t j = i + 2; j < edge.size(); ++j)
      if (cross(edge[i], edge[i + 1], edge[j], edge[(j + 1) % edge.size()])) return true;
  return false;
}

}  // namespace

// A map of one orientation whose edge does not meet itself takes no value twice, so both are looked at.
bool foldsOn(const CubicMap& map, const RawArea& area) {
  return !hasOneOrientation(map, area) || edgeMeetsItself(map, area);
}

}  // namespace touchpanel
