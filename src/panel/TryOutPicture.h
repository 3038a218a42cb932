#pragma once

#include <QLineF>
#include <QList>
#include <QPointF>
#include <QPolygonF>
#include <optional>

class QPainter;
class QPalette;

namespace touchpanel {

/// One tap of a try-out.
struct TryOutMark {
  QLineF line;  ///< from where it was meant to where it landed
  bool wasHeld = false;
  QPolygonF drift;  ///< its path when it drifted
};

/// A try-out as it is drawn, on the screen or on paper: in points of the surface, y downwards.
struct TryOutPicture {
  QList<QPointF> testPoints;
  std::optional<QPointF> marked;  ///< the test point to be touched next
  QList<TryOutMark> taps;
  QPolygonF trail;  ///< of the touch under way, or the last one
};

/// Draws `picture` in the colours of `palette`. Shapes differ wherever colours do, for those who see no colours.
void paint(QPainter& painter, const TryOutPicture& picture, const QPalette& palette);

}  // namespace touchpanel
