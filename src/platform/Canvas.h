#pragma once

#include <string>
#include <vector>

#include "platform/Geometry.h"

namespace touchpanel {

/// Red, green, blue and alpha. Components above 1 are pinned to 1 when drawn.
struct Color {
  float red = 0;
  float green = 0;
  float blue = 0;
  float alpha = 1;
  bool operator==(const Color&) const = default;
};

namespace color {
inline constexpr Color kWhite{1, 1, 1, 1};
inline constexpr Color kBlack{0, 0, 0, 1};
inline constexpr Color kRed{1, 0, 0, 1};
inline constexpr Color kYellow{1, 1, 0, 1};
inline constexpr Color kGrey{0.5F, 0.5F, 0.5F, 1};
}  // namespace color

/// A number in a text, written as the user's language writes numbers.
struct TextNumber {
  double value = 0;
  int decimals = 0;
  bool operator==(const TextNumber&) const = default;
};

/// Text with its look. Lines are separated by '\n'; `fontSize` is in points of the view. `numbers` stand for "%1",
/// "%2" and so on, and are put in once the text is translated.
struct StyledText {
  std::string text;
  std::string fontFamily;
  float fontSize = 0;
  Color color;
  std::vector<TextNumber> numbers = {};
  bool operator==(const StyledText&) const = default;
};

/// What a view draws on, in view coordinates.
class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual void fillRect(const Rect& rect, const Color& color) = 0;
  /// Fills the oval that touches the four sides of `bounds`.
  virtual void fillOval(const Rect& bounds, const Color& color) = 0;
  /// Draws the outline of `rect`, one point wide.
  virtual void strokeRect(const Rect& rect, const Color& color) = 0;
  /// Draws a line of `width` points inside the oval that touches the four sides of `bounds`.
  virtual void strokeOval(const Rect& bounds, const Color& color, float width) = 0;
  virtual void drawLine(const Point& from, const Point& to, const Color& color, float width) = 0;
  /// Draws `text` with the lower-left corner of its block of lines at `origin`.
  virtual void drawText(const StyledText& text, const Point& origin) = 0;
  /// What drawText() covers, without empty lines at the end.
  virtual Rect textExtent(const StyledText& text, const Point& origin) = 0;
};

}  // namespace touchpanel
