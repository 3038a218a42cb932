#include "calibration/CalibrationGrid.h"

#include "contract/MonitorPlacement.h"

namespace touchpanel {

Point fourPointTarget(std::int32_t index, const Size& box) {
  const bool right = index == 1 || index == 3;
  const bool upper = index < 2;
  return {right ? 19 * box.width / 20 : box.width / 20, upper ? 19 * box.height / 20 : box.height / 20};
}

Point gridTarget(std::int32_t row, std::int32_t column, const Size& box) {
  const auto [width, height] = box;
  const auto rowsDown = static_cast<float>(row - 1);
  return {width / 20 + static_cast<float>(column) * (width - 2 * width / 20) / 4,
          (height - height / 20) - rowsDown * (height - 2 * height / 20) / 4};
}

Point driverUnits(const Point& target, const Size& box) {
  constexpr float kMaximum = kLogicalMaximum;
  return {(kMaximum / box.width) * target.x, (box.height - target.y) * (kMaximum / box.height)};
}

Point viewPoint(const Point& units, const Size& box) {
  constexpr float kMaximum = kLogicalMaximum;
  return {units.x * box.width / kMaximum, box.height - units.y * box.height / kMaximum};
}

Point onGlass(const Point& units, std::int32_t turn) { return inPicture(units, (4 - turn) % 4); }

Point inPicture(const Point& glass, std::int32_t turn) {
  const auto [x, y] = inTurnedPicture<float>(glass.x, glass.y, kLogicalMaximum, turn);
  return {x, y};
}

}  // namespace touchpanel
