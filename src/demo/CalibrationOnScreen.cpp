#include "demo/CalibrationOnScreen.h"

#include <QScreen>

#include "calibration/Calibration.h"
#include "calibration/RegionCalibration.h"

namespace touchpanel::demo {

const CalibrationRun* runOn(const ViewSurface& surface) {
  if (const auto* whole = dynamic_cast<const Calibration*>(surface.view())) return &whole->run();
  if (const auto* region = dynamic_cast<const RegionCalibration*>(surface.view())) return &region->run();
  return nullptr;
}

bool isForFinger(const ViewSurface& surface) {
  // A number that is small lies beside windows that are for the mouse.
  if (runOn(surface) == nullptr) return surface.size() == surface.screen()->size();
  const auto* region = dynamic_cast<const RegionCalibration*>(surface.view());
  return region == nullptr || (!region->isChoosing() && region->run().isCollecting());
}

}  // namespace touchpanel::demo
