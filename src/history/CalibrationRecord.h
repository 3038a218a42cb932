#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "calibration/TouchErrors.h"
#include "platform/Geometry.h"
#include "protocol/DeviceContext.h"

namespace touchpanel {

/// How a device context came into a touchscreen's history.
enum class CalibrationEvent {
  AsFound,   ///< it was there before this program changed anything
  Replaced,  ///< it was there before a change, put there by something else
  Accepted,  ///< the result of a calibration
  Reset,
  Restored,  ///< an earlier one, put back
};

/// How much of what it was sent the touchscreen has taken.
enum class WrittenState { Yes, Partly, No, Unknown };

/// How well a calibration fits the touches that it was made from.
struct CalibrationFit {
  std::int32_t targets = 0;
  TouchErrors pixels = {};
  std::optional<TouchErrors> millimetres = {};  ///< when the screen's size was known
  Size screen = {};                             ///< that the targets were shown on, in points
  std::vector<LandedTouch> touches = {};        ///< in logical units, 0..32767 on both axes, y from the top
  bool operator==(const CalibrationFit&) const = default;
};

/// One device context that a touchscreen held, or was to hold.
struct CalibrationRecord {
  std::chrono::sys_seconds time{};
  CalibrationEvent event = CalibrationEvent::AsFound;
  WrittenState written = WrittenState::Yes;
  _DEVICT_CONTEXT context{};
  std::optional<CalibrationFit> fit = {};  ///< of an accepted one, and of what is restored from it

  bool isCalibrated() const { return context.DeviceConfig.CalibrateStatus != 0; }
};

/// Whether two contexts agree in all that a touchscreen is sent: configuration and both polynomials.
inline bool isSameCalibration(const _DEVICT_CONTEXT& a, const _DEVICT_CONTEXT& b) {
  return imageOf(a.DeviceConfig) == imageOf(b.DeviceConfig) &&
         imageOf(a.CalibParams) == imageOf(b.CalibParams);
}

}  // namespace touchpanel
