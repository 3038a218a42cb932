#include "calibration/FitMarks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "calibration/CalibrationGrid.h"

namespace touchpanel {
namespace {

constexpr Color kPressed{0.45F, 0, 0.06F, 0.35F};

float distance(const Point& a, const Point& b) { return std::hypot(a.x - b.x, a.y - b.y); }

/// Nothing lies between the two ends, nor on the second.
bool isClear(const Point& from, const Point& to, float radius, const FreeSpace& space) {
  const float length = distance(from, to);
  if (!std::isfinite(length)) return false;
  // Not more steps than the longest line on a large screen has.
  const auto steps = static_cast<int>(std::min(length / radius, 10'000.0F));
  for (int step = 1; step <= steps; ++step) {
    const float part = static_cast<float>(step) * radius / length;
    if (!space.isFree(
            rectAround({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part}, radius / 2)))
      return false;
  }
  return space.isFree(rectAround(to, radius / 2));
}

/// Places around a target for a ring that has no room on it, from near to far.
std::vector<Point> placesAround(const Point& target, float step) {
  std::vector<Point> places;
  for (int far = 1; far <= 16; ++far)
    for (const auto& [x, y] :
         std::to_array<Point>({{0, 1}, {0, -1}, {1, 1}, {-1, 1}, {1, -1}, {-1, -1}, {1, 0}, {-1, 0}}))
      places.push_back(
          {target.x + x * step * static_cast<float>(far), target.y + y * step * static_cast<float>(far)});
  return places;
}

}  // namespace

void FitMarks::draw(Canvas& canvas, const FitExamination& fit, const Size& box, const AdditionStyle& style,
                    FreeSpace& space) {
  clear();
  const auto touches = fit.report().touches();
  std::vector<std::size_t> covered;
  for (std::size_t k = 0; k < touches.size(); ++k) {
    const auto target = viewPoint(touches[k].units.meant, box);
    if (!space.isFree(rectAround(target, touches[k].fits ? style.markRadius : style.ringRadius))) {
      if (!touches[k].fits) covered.push_back(k);
      continue;
    }
    drawMark(canvas, target, viewPoint(touches[k].units.landed, box), style, space);
    if (!touches[k].fits) drawRing(canvas, fit, box, static_cast<std::int32_t>(k), target, style);
  }
  // Rings elsewhere keep off the targets, so all of these are occupied first.
  for (const auto& touch : touches)
    space.occupy(
        rectAround(viewPoint(touch.units.meant, box), touch.fits ? style.markRadius : style.ringRadius));
  for (const auto k : covered) {
    const auto target = viewPoint(touches[k].units.meant, box);
    const auto rect =
        space.place({2 * style.ringRadius, 2 * style.ringRadius}, placesAround(target, style.ringRadius));
    if (!rect) continue;
    const Point centre{rect->x + style.ringRadius, rect->y + style.ringRadius};
    drawRing(canvas, fit, box, static_cast<std::int32_t>(k), centre, style);
    auto number = style.text("%1", {{static_cast<double>(k + 1)}});
    number.fontSize = std::min(style.textSize, style.ringRadius);
    const auto extent = canvas.textExtent(number, {0, 0});
    canvas.drawText(number, {centre.x - extent.width / 2, centre.y - extent.height / 2});
  }
}

void FitMarks::drawMark(Canvas& canvas, const Point& target, const Point& landed, const AdditionStyle& style,
                        const FreeSpace& space) const {
  const float arm = style.markRadius;
  canvas.drawLine({target.x - arm, target.y}, {target.x + arm, target.y}, AdditionStyle::kInk, style.stroke);
  canvas.drawLine({target.x, target.y - arm}, {target.x, target.y + arm}, AdditionStyle::kInk, style.stroke);
  const float dot = 1.5F * style.stroke;
  if (!isClear(target, landed, dot, space)) return;
  if (distance(target, landed) > dot) canvas.drawLine(target, landed, AdditionStyle::kInk, style.stroke);
  canvas.fillOval(rectAround(landed, dot), AdditionStyle::kInk);
  canvas.fillOval(rectAround(landed, dot / 2), color::kWhite);
}

void FitMarks::drawRing(Canvas& canvas, const FitExamination& fit, const Size& box, std::int32_t target,
                        const Point& centre, const AdditionStyle& style) {
  const auto bounds = rectAround(centre, style.ringRadius);
  if (pressed_ == target) canvas.fillOval(bounds, kPressed);
  canvas.strokeOval(bounds, AdditionStyle::kAlarm, 1.5F * style.stroke);
  rings_.push_back({target, centre, viewPoint(fit.landingOf(driverUnits(centre, box)), box), style.reach});
}

std::optional<std::int32_t> FitMarks::ringAt(const Point& location) const {
  std::optional<std::int32_t> nearest;
  float least = 0;
  for (const auto& ring : rings_) {
    const float away = std::min(distance(location, ring.centre), distance(location, ring.landing));
    if (!(away <= ring.reach) || (nearest && away >= least)) continue;
    nearest = ring.target;
    least = away;
  }
  return nearest;
}

}  // namespace touchpanel
