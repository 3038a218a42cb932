#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "platform/Canvas.h"

namespace touchpanel::testing {

/// One drawing operation. A text is drawn at the origin of its place, which has no size.
struct Drawn {
  std::string what;
  Rect place;
  Color color;
  bool operator==(const Drawn&) const = default;
};
using Operations = std::vector<Drawn>;

inline Drawn drawnText(const StyledText& text, Point origin) {
  return {text.fontFamily + ' ' + std::to_string(text.fontSize) + ": " + text.text,
          {origin.x, origin.y, 0, 0},
          text.color};
}

inline void PrintTo(const Drawn& drawn, std::ostream* out) {
  const auto& [what, place, color] = drawn;
  *out << what << " (" << place.x << ", " << place.y << ", " << place.width << ", " << place.height << ") in "
       << color.red << '/' << color.green << '/' << color.blue << '/' << color.alpha;
}

/// Keeps what is drawn on it, operation by operation.
class RecordingCanvas final : public Canvas {
 public:
  void fillRect(const Rect& rect, const Color& color) override {
    operations.push_back({"rect", rect, color});
  }
  void fillOval(const Rect& bounds, const Color& color) override {
    operations.push_back({"oval", bounds, color});
  }
  void strokeRect(const Rect& rect, const Color& color) override {
    operations.push_back({"outline", rect, color});
  }
  void drawText(const StyledText& text, const Point& origin) override {
    operations.push_back(drawnText(text, origin));
  }

  Operations operations;
};

}  // namespace touchpanel::testing
