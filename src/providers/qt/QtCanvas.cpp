#include "providers/qt/QtCanvas.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QLocale>
#include <algorithm>
#include <cmath>

namespace touchpanel {
namespace {

QColor toQColor(const Color& color) {
  const auto pinned = [](float component) { return std::clamp(component, 0.0F, 1.0F); };
  return QColor::fromRgbF(pinned(color.red), pinned(color.green), pinned(color.blue), pinned(color.alpha));
}

/// A font whose size is in points of the view, whatever the screen's resolution says a point is.
QFont fontOf(const StyledText& text) {
  QFont font(QString::fromStdString(text.fontFamily));
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(text.fontSize))));
  return font;
}

QStringList linesOf(const StyledText& text) {
  QString translated = QCoreApplication::translate("CalibrationScreen", text.text.c_str());
  for (const auto& [value, decimals] : text.numbers)
    translated = translated.arg(QLocale().toString(value, 'f', decimals));
  return translated.split(u'\n');
}

double lineHeightOf(const QFontMetricsF& metrics) { return std::ceil(metrics.height()); }

}  // namespace

QtCanvas::QtCanvas(QPainter& painter, float height) : painter_(painter), height_(height) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

QRectF QtCanvas::flipped(const Rect& rect) const {
  return QRectF(rect.x, height_ - rect.y - rect.height, rect.width, rect.height).normalized();
}

QPointF QtCanvas::flipped(const Point& point) const { return QPointF(point.x, height_ - point.y); }

void QtCanvas::fillRect(const Rect& rect, const Color& color) {
  if (!stopped_) painter_.fillRect(flipped(rect), toQColor(color));
}

void QtCanvas::fillOval(const Rect& bounds, const Color& color) {
  if (stopped_) return;
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(toQColor(color));
  painter_.drawEllipse(flipped(bounds));
}

void QtCanvas::strokeRect(const Rect& rect, const Color& color) {
  if (stopped_) return;
  QPen pen(toQColor(color), 1);
  pen.setJoinStyle(Qt::MiterJoin);
  painter_.setPen(pen);
  painter_.setBrush(Qt::NoBrush);
  // Half a point inwards, so that the outline covers whole points and is not smeared over two.
  painter_.drawRect(flipped(rect).adjusted(0.5, 0.5, -0.5, -0.5));
}

void QtCanvas::strokeOval(const Rect& bounds, const Color& color, float width) {
  if (stopped_) return;
  painter_.setPen(QPen(toQColor(color), static_cast<double>(width)));
  painter_.setBrush(Qt::NoBrush);
  const double inset = static_cast<double>(width) / 2;
  painter_.drawEllipse(flipped(bounds).adjusted(inset, inset, -inset, -inset));
}

void QtCanvas::drawLine(const Point& from, const Point& to, const Color& color, float width) {
  if (stopped_) return;
  painter_.setPen(QPen(toQColor(color), static_cast<double>(width), Qt::SolidLine, Qt::RoundCap));
  painter_.drawLine(flipped(from), flipped(to));
}

void QtCanvas::drawText(const StyledText& text, const Point& origin) {
  if (stopped_ || text.text.empty()) return;
  const auto lines = linesOf(text);
  drawnTexts_.push_back({text.text, lines.join(u' ').simplified()});
  painter_.setFont(fontOf(text));
  painter_.setPen(toQColor(text.color));
  const QFontMetricsF metrics(painter_.font(), painter_.device());
  const double lineHeight = lineHeightOf(metrics);
  double baseline =
      std::round(static_cast<double>(height_) - static_cast<double>(origin.y) - metrics.descent()) -
      lineHeight * static_cast<double>(lines.size() - 1);
  for (const auto& line : lines) {
    painter_.drawText(QPointF(static_cast<double>(origin.x), baseline), line);
    baseline += lineHeight;
  }
}

Rect QtCanvas::textExtent(const StyledText& text, const Point& origin) {
  auto lines = linesOf(text);
  double below = 0, width = 0;
  const QFontMetricsF metrics(fontOf(text), painter_.device());
  for (; lines.size() > 1 && lines.back().isEmpty(); lines.removeLast()) below += lineHeightOf(metrics);
  for (const auto& line : lines) width = std::max(width, metrics.horizontalAdvance(line));
  const double height = lineHeightOf(metrics) * static_cast<double>(lines.size());
  return {origin.x, origin.y + static_cast<float>(below), static_cast<float>(std::ceil(width)),
          static_cast<float>(height)};
}

}  // namespace touchpanel
