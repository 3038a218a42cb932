#include "panel/Drawings.h"

#include <QAbstractButton>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace touchpanel {
namespace {

// All drawings stand on a glass surface, a line at kGlass, in a box of 60 x 52.
constexpr double kGlass = 42;
constexpr double kMiddle = 30;
constexpr double kFingerWidth = 13;

class Sketch {
 public:
  Sketch(QPainter& painter, const QPalette& palette) : painter_(painter), palette_(palette) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(ink(), 2, Qt::SolidLine, Qt::RoundCap));
    painter_.drawLine(QPointF(6, kGlass + 2), QPointF(54, kGlass + 2));
  }

  /// A finger tip whose lowest point is `lift` above the glass.
  void finger(double x, double lift) {
    const double tip = kGlass - lift;
    QPainterPath path;
    path.moveTo(x - kFingerWidth / 2, tip - 26);
    path.lineTo(x - kFingerWidth / 2, tip - kFingerWidth / 2);
    path.arcTo(QRectF(x - kFingerWidth / 2, tip - kFingerWidth, kFingerWidth, kFingerWidth), 180, 180);
    path.lineTo(x + kFingerWidth / 2, tip - 26);
    painter_.setPen(QPen(ink(), 1.6));
    painter_.setBrush(palette_.color(QPalette::Base));
    painter_.drawPath(path);
  }
  /// The moment of the click: rays around the point where the finger meets the glass.
  void click(double x) {
    painter_.setPen(QPen(accent(), 2.2, Qt::SolidLine, Qt::RoundCap));
    for (const double side : {-1.0, 1.0}) {
      painter_.drawLine(QPointF(x + side * 10, kGlass - 3), QPointF(x + side * 16, kGlass - 6));
      painter_.drawLine(QPointF(x + side * 9, kGlass - 8), QPointF(x + side * 13, kGlass - 13));
    }
  }
  void arrow(QPointF from, QPointF to) {
    painter_.setPen(QPen(accent(), 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.drawLine(from, to);
    const QLineF shaft(to, from);
    for (const double turn : {35.0, -35.0}) {
      QLineF barb = shaft;
      barb.setLength(6);
      barb.setAngle(shaft.angle() + turn);
      painter_.drawLine(barb);
    }
  }
  /// A clock face: something that takes its time.
  void clock(QPointF centre) {
    painter_.setPen(QPen(accent(), 1.8));
    painter_.setBrush(palette_.color(QPalette::Base));
    painter_.drawEllipse(centre, 7, 7);
    painter_.drawLine(centre, centre + QPointF(0, -4.5));
    painter_.drawLine(centre, centre + QPointF(3, 1.5));
  }

 private:
  QColor ink() const { return palette_.color(QPalette::WindowText); }
  QColor accent() const { return palette_.color(QPalette::Highlight); }

  QPainter& painter_;
  const QPalette& palette_;
};

}  // namespace

void TouchModeDrawing::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Sketch sketch(painter, palette());
  switch (mode_) {
    case 0:
      sketch.finger(kMiddle, 0);
      sketch.click(kMiddle);
      sketch.arrow({50, 10}, {50, 24});
      break;
    case 1:
      sketch.finger(kMiddle, 9);
      sketch.click(kMiddle);
      sketch.arrow({50, 24}, {50, 10});
      break;
    case 2:
      sketch.finger(18, 0);
      sketch.arrow({28, 34}, {52, 34});
      sketch.clock({44, 14});
      break;
    default:
      sketch.finger(20, 0);
      sketch.finger(40, 0);
      sketch.arrow({11, 28}, {4, 28});
      sketch.arrow({49, 28}, {56, 28});
      break;
  }
}

void TouchModeDrawing::mousePressEvent(QMouseEvent* /*event*/) {
  if (choice_ != nullptr) choice_->click();
}

namespace {

/// A monitor on its foot in a box of 160 x 112, drawn at `scale`.
void drawMonitor(QPainter& painter, const QColor& ink, double width) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(ink, width, Qt::SolidLine, Qt::RoundCap));
  painter.drawRoundedRect(QRectF(24, 8, 112, 72), 6, 6);
  painter.drawLine(QPointF(80, 80), QPointF(80, 92));
  painter.drawLine(QPointF(58, 93), QPointF(102, 93));
}

void drawTarget(QPainter& painter, const QPen& pen) {
  painter.setPen(pen);
  painter.drawEllipse(QPointF(80, 44), 9, 9);
  painter.drawEllipse(QPointF(80, 44), 20, 20);
}

void drawClock(QPainter& painter) {
  painter.drawEllipse(QPointF(80, 44), 20, 20);
  painter.drawPolyline(QPolygonF({{80, 31}, {80, 44}, {89, 49}}));
}

void drawLock(QPainter& painter) {
  painter.drawRoundedRect(QRectF(63, 42, 34, 24), 3, 3);
  painter.drawArc(QRectF(69, 24, 22, 32), 0, 180 * 16);
  painter.drawLine(QPointF(80, 51), QPointF(80, 57));
}

/// Two ends of a line that do not meet.
void drawBreak(QPainter& painter) {
  painter.drawPolyline(QPolygonF({{38, 44}, {62, 44}, {68, 34}}));
  painter.drawPolyline(QPolygonF({{92, 54}, {98, 44}, {122, 44}}));
}

QColor faintInk(const QWidget& widget) {
  QColor ink = widget.palette().color(QPalette::WindowText);
  ink.setAlphaF(0.55F);
  return ink;
}

}  // namespace

void EmptyDrawing::show(ListState state) {
  state_ = state;
  update();
}

void EmptyDrawing::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(width() / 2.0 - 80, height() / 2.0 - 56);
  drawMonitor(painter, faintInk(*this), 2.5);
  const QColor accent = palette().color(QPalette::Highlight);
  painter.setPen(QPen(accent, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  switch (state_) {
    case ListState::Empty:
      return drawTarget(painter, QPen(accent, 2.5, Qt::DashLine, Qt::RoundCap));
    case ListState::Waiting:
      return drawClock(painter);
    case ListState::Refused:
      return drawLock(painter);
    case ListState::ServiceDown:
      return drawBreak(painter);
  }
}

void FactsDrawing::show(State state) {
  state_ = state;
  update();
}

void FactsDrawing::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = std::min(width() / 116.0, height() / 90.0);
  painter.scale(scale, scale);
  painter.translate(-22, -6);
  const QColor ink = palette().color(QPalette::WindowText);
  const QColor accent = palette().color(QPalette::Highlight);
  drawMonitor(painter, ink, 4);
  if (state_ == State::NoAnswer) {
    painter.setPen(QPen(accent, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    return drawBreak(painter);
  }
  const bool isCalibrated = state_ == State::Calibrated;
  drawTarget(painter, QPen(accent, 4, isCalibrated ? Qt::SolidLine : Qt::DotLine, Qt::RoundCap));
  if (!isCalibrated) return;
  painter.setPen(QPen(ink, 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({{100, 54}, {110, 64}, {128, 42}}));
}

}  // namespace touchpanel
