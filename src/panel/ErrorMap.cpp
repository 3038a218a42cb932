#include "panel/ErrorMap.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "contract/DriverProperties.h"

namespace touchpanel {
namespace {

/// The longest line is to take at least this part of the screen's width, as far as the factors below reach.
constexpr double kVisiblePart = 0.04;
constexpr int kFactors[] = {1, 2, 5, 10, 20, 50, 100, 200, 500};

/// `point` of the logical units on a screen of size `screen`.
QPointF onScreen(Point point, const QSizeF& screen) {
  return {point.x * screen.width() / kLogicalMaximum, point.y * screen.height() / kLogicalMaximum};
}

double distanceOf(const LandedTouch& touch, const QSizeF& screen) {
  const QPointF error = onScreen(touch.landed, screen) - onScreen(touch.meant, screen);
  return std::hypot(error.x(), error.y());
}

QSizeF screenOf(const CalibrationFit& fit) { return {fit.screen.width, fit.screen.height}; }

int exaggerationOf(const CalibrationFit& fit) {
  if (fit.touches.empty()) return 0;
  double largest = 0;
  for (const auto& touch : fit.touches) largest = std::max(largest, distanceOf(touch, screenOf(fit)));
  const double wanted = kVisiblePart * fit.screen.width / largest;  // infinite for no error at all
  const auto* factor = std::ranges::find_if(kFactors, [&](int each) { return each >= wanted; });
  return factor == std::end(kFactors) ? std::end(kFactors)[-1] : *factor;
}

}  // namespace

std::vector<TouchDistance> touchDistances(const CalibrationFit& fit) {
  std::vector<TouchDistance> distances;
  double mean = 0;
  for (const auto& touch : fit.touches) {
    distances.push_back({distanceOf(touch, screenOf(fit)), {}});
    mean += distances.back().pixels / static_cast<double>(fit.touches.size());
  }
  // The screen is remembered in points; the mean is known in both units and so gives the scale of each.
  const double pixels = mean > 0 ? fit.pixels.mean / mean : 1;
  const double millimetres = mean > 0 && fit.millimetres ? fit.millimetres->mean / mean : 0;
  for (auto& distance : distances) {
    if (fit.millimetres) distance.millimetres = distance.pixels * millimetres;
    distance.pixels *= pixels;
  }
  return distances;
}

void ErrorMap::show(const std::optional<CalibrationFit>& fit) {
  fit_ = fit;
  exaggeration_ = fit ? exaggerationOf(*fit) : 0;
  update();
}

void ErrorMap::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QSizeF size = fit_ ? screenOf(*fit_).scaled(QSizeF(rect().size()) - QSizeF(8, 8), Qt::KeepAspectRatio)
                           : QSizeF(rect().size()) - QSizeF(8, 8);
  painter.translate((width() - size.width()) / 2, (height() - size.height()) / 2);
  painter.setPen(QPen(palette().color(QPalette::WindowText), 1));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRect(QRectF(QPointF(), size));
  if (!fit_) return;
  for (const auto& touch : fit_->touches) {
    const QPointF target = onScreen(touch.meant, size);
    const QPointF landed = target + (onScreen(touch.landed, size) - target) * exaggeration_;
    painter.setPen(QPen(palette().color(QPalette::Text), 1));
    painter.drawLine(target - QPointF(6, 0), target + QPointF(6, 0));
    painter.drawLine(target - QPointF(0, 6), target + QPointF(0, 6));
    painter.setPen(QPen(palette().color(QPalette::Text), 2));
    painter.drawLine(target, landed);
    painter.setPen(QPen(palette().color(QPalette::Base), 1));
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawEllipse(landed, 4, 4);
  }
}

}  // namespace touchpanel
