#pragma once

#include <string>

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

/// Text with its look. Lines are separated by '\n'; `fontSize` is in points of the view.
struct StyledText {
  std::string text;
  std::string fontFamily;
  float fontSize = 0;
  Color color;
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
  /// Draws `text` with the lower-left corner of its block of lines at `origin`.
  virtual void drawText(const StyledText& text, const Point& origin) = 0;
};

}  // namespace touchpanel
