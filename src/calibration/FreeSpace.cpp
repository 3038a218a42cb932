#include "calibration/FreeSpace.h"

#include <algorithm>

namespace touchpanel {

bool FreeSpace::isFree(const Rect& rect) const {
  const bool isInside = rect.x >= bounds_.x && rect.y >= bounds_.y &&
                        rect.x + rect.width <= bounds_.x + bounds_.width &&
                        rect.y + rect.height <= bounds_.y + bounds_.height;
  return isInside && std::ranges::none_of(occupied_, [&](const Rect& other) {
           return rect.x < other.x + other.width + margin_ && other.x < rect.x + rect.width + margin_ &&
                  rect.y < other.y + other.height + margin_ && other.y < rect.y + rect.height + margin_;
         });
}

std::optional<Rect> FreeSpace::place(const Size& size, std::span<const Point> centres) {
  for (const auto& [x, y] : centres) {
    const Rect rect{x - size.width / 2, y - size.height / 2, size.width, size.height};
    if (!isFree(rect)) continue;
    occupy(rect);
    return rect;
  }
  return std::nullopt;
}

Rect rectAround(const Point& centre, float radius) {
  return {centre.x - radius, centre.y - radius, 2 * radius, 2 * radius};
}

}  // namespace touchpanel
