#pragma once

#include <ostream>
#include <variant>
#include <vector>

#include "platform/Canvas.h"

namespace touchpanel::testing {

struct FilledRect {
  Rect rect;
  Color color;
  bool operator==(const FilledRect&) const = default;
};
struct FilledOval {
  Rect bounds;
  Color color;
  bool operator==(const FilledOval&) const = default;
};
struct StrokedRect {
  Rect rect;
  Color color;
  bool operator==(const StrokedRect&) const = default;
};
struct DrawnText {
  StyledText text;
  Point origin;
  bool operator==(const DrawnText&) const = default;
};

/// Keeps what is drawn on it, operation by operation.
class RecordingCanvas final : public Canvas {
 public:
  using Operation = std::variant<FilledRect, FilledOval, StrokedRect, DrawnText>;

  void fillRect(const Rect& rect, const Color& color) override {
    operations.emplace_back(FilledRect{rect, color});
  }
  void fillOval(const Rect& bounds, const Color& color) override {
    operations.emplace_back(FilledOval{bounds, color});
  }
  void strokeRect(const Rect& rect, const Color& color) override {
    operations.emplace_back(StrokedRect{rect, color});
  }
  void drawText(const StyledText& text, const Point& origin) override {
    operations.emplace_back(DrawnText{text, origin});
  }

  std::vector<Operation> operations;
};

inline std::ostream& operator<<(std::ostream& out, const Rect& rect) {
  return out << '(' << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height << ')';
}
inline std::ostream& operator<<(std::ostream& out, const Color& color) {
  return out << " in " << color.red << '/' << color.green << '/' << color.blue << '/' << color.alpha;
}

/// How a test's failure shows an operation.
inline void PrintTo(const RecordingCanvas::Operation& operation, std::ostream* out) {
  struct Printer {
    std::ostream& out;
    void operator()(const FilledRect& drawn) const { out << "rect " << drawn.rect << drawn.color; }
    void operator()(const FilledOval& drawn) const { out << "oval " << drawn.bounds << drawn.color; }
    void operator()(const StrokedRect& drawn) const { out << "outline " << drawn.rect << drawn.color; }
    void operator()(const DrawnText& drawn) const {
      out << '"' << drawn.text.text.substr(0, 20) << "\" at (" << drawn.origin.x << ", " << drawn.origin.y
          << ')' << drawn.text.fontFamily << ' ' << drawn.text.fontSize << drawn.text.color;
    }
  };
  std::visit(Printer{*out}, operation);
}

}  // namespace touchpanel::testing
