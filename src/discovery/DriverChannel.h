#pragma once

#include <cstdint>
#include <optional>

#include "contract/DriverProperties.h"
#include "platform/Registry.h"
#include "protocol/DeviceContext.h"

namespace touchpanel {

/// A captured touch as the driver reports it; a key that is missing reads as 0.
struct CapturedPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t pointId = 0;
  bool operator==(const CapturedPoint&) const = default;
};

/// Every message between the control panel and a driver instance; the only place that knows their keys. Each
/// write sends a fresh dictionary with just the keys of its message and is not repeated; it returns what the
/// registry answered (Registry::setProperty()).
class DriverChannel {
 public:
  explicit DriverChannel(Registry& registry) : registry_(registry) {}

  Status setCapture(RegistryObject handle, bool on);                 ///< "statCalibrate"
  Status selectTarget(RegistryObject handle, std::int32_t pointId);  ///< "pointId"
  Status resetCalibration(RegistryObject handle);                    ///< status false and the full touch area
  Status calibrationSaved(RegistryObject handle, const _CALIB_PARAMS& params);
  Status pointCalibrationCancelled(RegistryObject handle, bool status, const _CALIB_PARAMS& params);
  Status regionCalibrationCancelled(RegistryObject handle, bool status, const _CALIB_PARAMS& params);

  /// What the settings sheet applies, in one message.
  Status applySettings(RegistryObject handle, const TouchSettings& settings);
  Status setMode(RegistryObject handle, const Value& mode);  ///< "mode", passed on as it is stored
  Status enableTouch(RegistryObject handle, bool enabled);
  /// Whether the instance delivers touches by its own account; true when it says nothing.
  bool isTouchEnabled(RegistryObject handle);

  // Probes, an empty dictionary each. False when the instance is gone: one that does not answer, or that this
  // user may not write to, is still there.
  bool probeCalibration(RegistryObject handle);
  bool probeConfigration(RegistryObject handle);

  /// The last captured touch; nothing when the instance or its "calibration" dictionary is not there.
  std::optional<CapturedPoint> readCapture(RegistryObject handle);

  /// Writes the system's double-click time (ms, multiplied to ns in wrapping 32-bit arithmetic) and area to
  /// `hidSystem`. The object below another instance stands for the same system: where `hidSystem` is gone, the
  /// first one that takes the write is used instead.
  Status writeDoubleClick(RegistryObject hidSystem, std::int32_t timeMs, std::int32_t area);

 private:
  Status writeDoubleClickTo(RegistryObject hidSystem, std::int32_t nanoseconds, std::int32_t area);

  Registry& registry_;
};

}  // namespace touchpanel
