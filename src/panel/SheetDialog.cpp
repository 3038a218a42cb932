#include "panel/SheetDialog.h"

#include <QCloseEvent>
#include <QPainter>

namespace touchpanel {

void SheetDialog::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  QPainter painter(this);
  QColor edge = palette().color(QPalette::WindowText);
  edge.setAlphaF(0.45F);
  painter.setPen(edge);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void SheetDialog::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

}  // namespace touchpanel
