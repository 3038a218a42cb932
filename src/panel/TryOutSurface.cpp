#include "panel/TryOutSurface.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace touchpanel {
namespace {

bool isTouch(const QMouseEvent& event) {
  return event.button() == Qt::LeftButton || event.button() == Qt::RightButton;
}

}  // namespace

TryOutSurface::TryOutSurface(QWidget* parent) : QWidget(parent) {
  // What is drawn covers every pixel.
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void TryOutSurface::setPicture(TryOutPicture picture) {
  picture_ = std::move(picture);
  update();
}

void TryOutSurface::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  QColor frame = palette().color(QPalette::Text);
  frame.setAlphaF(0.3F);
  const double line = 1 / devicePixelRatioF();
  painter.setPen(QPen(frame, line));
  painter.drawRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2));
  paint(painter, picture_, palette());
}

void TryOutSurface::showEvent(QShowEvent* /*event*/) {
  if (onPlaced) onPlaced();
}

void TryOutSurface::hideEvent(QHideEvent* /*event*/) {
  if (onCancel) onCancel();
}

void TryOutSurface::resizeEvent(QResizeEvent* /*event*/) {
  if (onPlaced) onPlaced();
}

void TryOutSurface::mousePressEvent(QMouseEvent* event) {
  if (isTouch(*event) && onPress) onPress(event->position(), event->button() == Qt::RightButton);
}

void TryOutSurface::mouseMoveEvent(QMouseEvent* event) {
  if (onMove) onMove(event->position());
}

void TryOutSurface::mouseReleaseEvent(QMouseEvent* event) {
  if (isTouch(*event) && onRelease) onRelease(event->position());
}

}  // namespace touchpanel
