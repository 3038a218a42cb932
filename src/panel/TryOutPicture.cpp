#include "panel/TryOutPicture.h"

#include <QPainter>
#include <QPalette>
#include <cmath>

namespace touchpanel {
namespace {

/// The middle of the device pixel that `point` lies in, so that a thin line stays sharp at every scale.
QPointF sharp(const QPainter& painter, QPointF point) {
  const double scale = painter.device()->devicePixelRatioF();
  return {(std::floor(point.x() * scale) + 0.5) / scale, (std::floor(point.y() * scale) + 0.5) / scale};
}

void drawCross(QPainter& painter, QPointF centre, double reach) {
  painter.drawLine(centre - QPointF(reach, 0), centre + QPointF(reach, 0));
  painter.drawLine(centre - QPointF(0, reach), centre + QPointF(0, reach));
}

}  // namespace

void paint(QPainter& painter, const TryOutPicture& picture, const QPalette& palette) {
  const QColor ink = palette.color(QPalette::Text);
  const QColor accent = palette.color(QPalette::Highlight);
  QColor faint = ink;
  faint.setAlphaF(0.55F);
  painter.setRenderHint(QPainter::Antialiasing);

  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(faint, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(picture.trail);

  painter.setPen(QPen(faint, 1));
  for (const auto& point : picture.testPoints) drawCross(painter, sharp(painter, point), 6);

  if (picture.marked) {
    const QPointF centre = sharp(painter, *picture.marked);
    painter.setPen(QPen(accent, 2));
    for (const double radius : {9.0, 18.0}) painter.drawEllipse(centre, radius, radius);
    painter.setPen(QPen(ink, 1));
    drawCross(painter, centre, 24);
  }

  for (const auto& [line, wasHeld, drift] : picture.taps) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 1.5, Qt::DotLine));
    painter.drawPolyline(drift);
    painter.setPen(QPen(ink, 1.5));
    painter.drawLine(line);
    painter.setPen(QPen(palette.color(QPalette::Base), 1));
    painter.setBrush(accent);
    if (wasHeld)
      painter.drawRect(QRectF(line.p2() - QPointF(4.5, 4.5), QSizeF(9, 9)));
    else
      painter.drawEllipse(line.p2(), 4.5, 4.5);
  }
  if (!picture.taps.isEmpty()) {
    painter.setPen(QPen(ink, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(picture.taps.last().line.p2(), 7, 7);
  }
}

}  // namespace touchpanel
