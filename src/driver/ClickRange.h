#pragma once

#include <cstdint>

#include "driver/Point.h"

namespace touchpanel::driver {

/// Holds a shaky tap in place: the finger is reported at its anchor until it has moved further than the click
/// range from where it landed, and exactly from then on.
class ClickRange {
 public:
  /// `range` is in logical units.
  Point land(Point landing, Point anchor, std::int32_t range) {
    landing_ = landing;
    anchor_ = anchor;
    range_ = range;
    holding_ = true;
    return anchor_;
  }
  Point move(Point point) {
    holding_ = holding_ && isWithin(point, landing_, range_);
    return holding_ ? anchor_ : point;
  }

 private:
  Point landing_;
  Point anchor_;
  std::int32_t range_ = 0;
  bool holding_ = false;
};

}  // namespace touchpanel::driver
