#pragma once

#include "calibration/CalibrationRun.h"
#include "providers/qt/ViewSurface.h"

namespace touchpanel::demo {

/// The run that a calibration's window shows; null once it has ended.
const CalibrationRun* runOn(const ViewSurface& surface);
/// Whether the window is waiting for a finger. A region is drawn and its buttons are pressed with a mouse:
/// the finger that draws would count as a touch of the first target, and what it touches afterwards is spread
/// from the region over the whole screen.
bool isForFinger(const ViewSurface& surface);

}  // namespace touchpanel::demo
