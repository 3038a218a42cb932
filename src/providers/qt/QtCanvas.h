#pragma once

#include <QPainter>

#include "platform/Canvas.h"
#include "providers/qt/SpokenPicture.h"

namespace touchpanel {

/// Draws with a QPainter whose origin is the upper left corner; flips everything into it.
class QtCanvas final : public Canvas {
 public:
  /// `painter` is set up by the canvas and must outlive it. `height` is that of the view, in points.
  QtCanvas(QPainter& painter, float height);

  void fillRect(const Rect& rect, const Color& color) override;
  void fillOval(const Rect& bounds, const Color& color) override;
  void strokeRect(const Rect& rect, const Color& color) override;
  void strokeOval(const Rect& bounds, const Color& color, float width) override;
  void drawLine(const Point& from, const Point& to, const Color& color, float width) override;
  /// A line end at the end of the text opens a further, empty line, which lies lowest.
  void drawText(const StyledText& text, const Point& origin) override;
  Rect textExtent(const StyledText& text, const Point& origin) override;

  /// Every text drawn so far, in that order.
  const std::vector<DrawnText>& drawnTexts() const { return drawnTexts_; }

  /// Draws nothing from now on: the view has closed its window in the middle of its drawing.
  void stop() { stopped_ = true; }

 private:
  QRectF flipped(const Rect& rect) const;
  QPointF flipped(const Point& point) const;

  QPainter& painter_;
  float height_;
  bool stopped_ = false;
  std::vector<DrawnText> drawnTexts_;
};

}  // namespace touchpanel
