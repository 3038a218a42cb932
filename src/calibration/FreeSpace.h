#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/Geometry.h"

namespace touchpanel {

/// What of a rectangle is not occupied yet.
class FreeSpace {
 public:
  /// `margin` is kept free around everything.
  FreeSpace(const Rect& bounds, float margin) : bounds_(bounds), margin_(margin) {}

  void occupy(const Rect& rect) { occupied_.push_back(rect); }
  /// `rect` lies inside the bounds and meets nothing that is occupied.
  bool isFree(const Rect& rect) const;
  /// Occupies the first of the places of `size` around `centres` that is free. None when there is none.
  std::optional<Rect> place(const Size& size, std::span<const Point> centres);

 private:
  Rect bounds_;
  float margin_;
  std::vector<Rect> occupied_;
};

Rect rectAround(const Point& centre, float radius);

}  // namespace touchpanel
