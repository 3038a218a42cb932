#include "calibration/TouchCollection.h"

#include <utility>

namespace touchpanel {
namespace {

constexpr std::int32_t kColumns = 5;

}  // namespace

bool TouchCollection::isCollecting(std::int32_t mode) const {
  return (mode == kFourTargets || mode == kTwentyFiveTargets) && iTouchIndex < mode;
}

bool TouchCollection::isFinished(std::int32_t mode) const {
  return (mode == kFourTargets || mode == kTwentyFiveTargets) && iTouchIndex == mode;
}

void TouchCollection::take(std::int32_t mode, std::int32_t rawX, std::int32_t rawY) {
  const auto index = static_cast<std::size_t>(iTouchIndex);
  if (index >= fScrX.size()) return;
  if (mode == kTwentyFiveTargets) {
    ++iObjPoints;
    if (iObjPoints % kColumns == 0) ++iObjRow;
  }
  fScrX[index] = static_cast<float>(rawX);
  fScrY[index] = static_cast<float>(rawY);
  ++iTouchIndex;
  if (std::exchange(isAgain, false)) {
    iTouchIndex = mode;
    iObjRow = mode / kColumns + 1;
    iObjPoints = 0;
  }
}

void TouchCollection::takeAgain(std::int32_t target) {
  isAgain = true;
  iTouchIndex = target;
  iObjRow = target / kColumns + 1;
  iObjPoints = target % kColumns;
}

void TouchCollection::beginRow() {
  if (iObjPoints % kColumns == 0) iObjPoints = 0;
}

void TouchCollection::noteTarget(const Point& driverUnits) {
  const auto index = static_cast<std::size_t>(iTouchIndex);
  if (index >= fDspX.size()) return;
  fDspX[index] = driverUnits.x;
  fDspY[index] = driverUnits.y;
}

void TouchCollection::restart() {
  isAgain = false;
  iTouchIndex = 0;
  iObjRow = 1;
  iObjPoints = 0;
}

}  // namespace touchpanel
