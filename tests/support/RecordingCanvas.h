#pragma once

#include <algorithm>
#include <cstdio>
#include <ostream>
#include <sstream>
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
  std::string words = text.text;
  for (const auto& [value, decimals] : text.numbers) {
    char number[32];
    std::snprintf(number, sizeof number, "%.*f", decimals, value);
    words += std::string("; ") + number;
  }
  return {text.fontFamily + ' ' + std::to_string(text.fontSize) + ": " + words,
          {origin.x, origin.y, 0, 0},
          text.color};
}

inline void PrintTo(const Drawn& drawn, std::ostream* out) {
  const auto& [what, place, color] = drawn;
  *out << what << " (" << place.x << ", " << place.y << ", " << place.width << ", " << place.height << ") in "
       << color.red << '/' << color.green << '/' << color.blue << '/' << color.alpha;
}

/// Keeps what is drawn on it, operation by operation. Every character of a text is half as wide as its font is large.
class RecordingCanvas final : public Canvas {
 public:
  void fillRect(const Rect& rect, const Color& color) override { record({"rect", rect, color}, rect); }
  void fillOval(const Rect& bounds, const Color& color) override { record({"oval", bounds, color}, bounds); }
  void strokeRect(const Rect& rect, const Color& color) override { record({"outline", rect, color}, rect); }
  void strokeOval(const Rect& bounds, const Color& color, float) override {
    record({"ring", bounds, color}, bounds);
  }
  void drawLine(const Point& from, const Point& to, const Color& color, float) override {
    const Rect way{from.x, from.y, to.x - from.x, to.y - from.y};
    record({"line", way, color}, way);
  }
  void drawText(const StyledText& text, const Point& origin) override {
    record(drawnText(text, origin), textExtent(text, origin));
  }
  Rect textExtent(const StyledText& text, const Point& origin) override {
    std::istringstream all(text.text);
    std::size_t longest = 0, lines = 0;
    for (std::string line; std::getline(all, line); ++lines) longest = std::max(longest, line.size());
    const bool endsOpen = !text.text.empty() && text.text.back() == '\n';
    const float height = text.fontSize * 1.25F;
    return {origin.x, origin.y + (endsOpen ? height : 0), static_cast<float>(longest) * text.fontSize / 2,
            static_cast<float>(lines) * height};
  }

  Operations operations;
  std::vector<Rect> extents;  ///< what each operation covers; of a line its way

 private:
  void record(Drawn operation, const Rect& extent) {
    operations.push_back(std::move(operation));
    extents.push_back(extent);
  }
};

}  // namespace touchpanel::testing
