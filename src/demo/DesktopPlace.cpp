#include "demo/DesktopPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace touchpanel::demo {
namespace {

constexpr double kUnits = kLogicalMaximum + 1;

QRect desktop() { return QGuiApplication::primaryScreen()->virtualGeometry(); }

double partOf(double units, std::int32_t minimum, std::int32_t maximum) {
  return std::clamp((units - minimum) / (maximum + 1 - minimum), 0.0, 1.0);
}

int pixel(std::int32_t logical, int start, int length) {
  return start + std::min((logical * length + kLogicalMaximum / 2) / kLogicalMaximum, length - 1);
}

}  // namespace

firmware::ScreenFraction glassAt(const QPointF& global, const DesktopPart& part) {
  const QRectF whole = desktop();
  const double x = partOf((global.x() - whole.x()) * kUnits / whole.width(), part.minX, part.maxX);
  const double y = partOf((global.y() - whole.y()) * kUnits / whole.height(), part.minY, part.maxY);
  const auto [glassX, glassY] = inTurnedPicture(x, y, 1.0, (4 - part.turn) % 4);
  return {glassX, glassY};
}

QPoint pixelAt(std::int32_t x, std::int32_t y) {
  const QRect whole = desktop();
  return {pixel(x, whole.x(), whole.width()), pixel(y, whole.y(), whole.height())};
}

}  // namespace touchpanel::demo
