#pragma once

namespace touchpanel {

/// View coordinates: points, origin at the lower left, y upwards, single precision throughout.
struct Point {
  float x = 0;
  float y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  float width = 0;
  float height = 0;
  bool operator==(const Size&) const = default;
};

/// Lower-left corner and size. A dragged rectangle may have a negative size; it is drawn normalised.
struct Rect {
  float x = 0;
  float y = 0;
  float width = 0;
  float height = 0;
  bool operator==(const Rect&) const = default;
};

}  // namespace touchpanel
