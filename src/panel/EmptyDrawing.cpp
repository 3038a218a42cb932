#include "panel/EmptyDrawing.h"

#include <QPainter>

namespace touchpanel {

void EmptyDrawing::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(width() / 2.0 - 80, height() / 2.0 - 56);
  QColor ink = palette().color(QPalette::WindowText);
  ink.setAlphaF(0.55F);
  painter.setPen(QPen(ink, 2.5, Qt::SolidLine, Qt::RoundCap));
  painter.drawRoundedRect(QRectF(24, 8, 112, 72), 6, 6);
  painter.drawLine(QPointF(80, 80), QPointF(80, 92));
  painter.drawLine(QPointF(58, 93), QPointF(102, 93));
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2.5, Qt::DashLine, Qt::RoundCap));
  painter.drawEllipse(QPointF(80, 44), 9, 9);
  painter.drawEllipse(QPointF(80, 44), 20, 20);
}

}  // namespace touchpanel
