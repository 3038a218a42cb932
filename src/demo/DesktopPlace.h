#pragma once

#include <QPointF>

#include "contract/MonitorPlacement.h"
#include "firmware/TouchSurface.h"

namespace touchpanel::demo {

/// Where the glass of a touchscreen that lies on `part` of the desktop is touched when `global` is; clamped to the glass.
firmware::ScreenFraction glassAt(const QPointF& global, const DesktopPart& part);

/// The pixel of the desktop at x and y of its 0..32767.
QPoint pixelAt(std::int32_t x, std::int32_t y);

}  // namespace touchpanel::demo
