#pragma once

#include <cstdint>

#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel::driver {

/// Rows of the touch mode selector.
enum TouchModeRow : std::int32_t {
  kClickOnTouch = 0,
  kClickOnRelease = 1,
  kDragAndHold = 2,
  kMultiTouch = 3,
};

/// The touch behaviour: the "configration" property. Times are in ms; areas and the click range are in area
/// units of 32 logical units (Point.h), to each side of a point. The defaults are what a touchscreen does
/// that nobody has configured.
struct TouchSettings {
  std::int32_t mode = kDragAndHold;
  std::int32_t clickRange = 0;
  bool enableRightClick = true;
  std::int32_t rightClickTime = 1000;
  std::int32_t rightClickArea = 5;
  bool enableTouchSensitivity = true;
  std::int32_t touchSensitivityTime = 100;
  std::int32_t touchSensitivityArea = 5;
  std::int32_t smoothness = 1;
  bool enableTouch = true;
  bool operator==(const TouchSettings&) const = default;
};

/// Takes what `dictionary` holds into `settings`, absent keys staying as they are. kErrorBadArgument, and
/// `settings` unchanged, when any key, type or value is not acceptable.
Status write(TouchSettings& settings, const Dictionary& dictionary);
/// Takes every acceptable entry and leaves the others out; false when there were others.
bool writeAcceptable(TouchSettings& settings, const Dictionary& dictionary);
/// All ten keys.
Dictionary toDictionary(const TouchSettings& settings);

}  // namespace touchpanel::driver
