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
/// write sends a fresh dictionary with just the keys of its message. Only the probes return whether the write
/// succeeded; the others are not checked, not repeated and not reported.
class DriverChannel {
 public:
  explicit DriverChannel(Registry& registry) : registry_(registry) {}

  void setCapture(RegistryObject handle, bool on);                 ///< "statCalibrate"
  void selectTarget(RegistryObject handle, std::int32_t pointId);  ///< "pointId"
  void resetCalibration(RegistryObject handle);                    ///< status false and the full touch area
  void calibrationSaved(RegistryObject handle, const _CALIB_PARAMS& params);
  void pointCalibrationCancelled(RegistryObject handle, bool status, const _CALIB_PARAMS& params);
  void regionCalibrationCancelled(RegistryObject handle, bool status, const _CALIB_PARAMS& params);

  /// What the settings sheet applies, in one message.
  void applySettings(RegistryObject handle, const TouchSettings& settings);
  void setMode(RegistryObject handle, const Value& mode);  ///< "mode", passed on as it is stored
  void enableTouch(RegistryObject handle, bool enabled);

  bool probeCalibration(RegistryObject handle);   ///< empty "calibration"; false: the instance is gone
  bool probeConfigration(RegistryObject handle);  ///< empty "configration"; false: the instance is gone

  /// The last captured touch; nothing when the instance or its "calibration" dictionary is not there.
  std::optional<CapturedPoint> readCapture(RegistryObject handle);

  /// Writes the system's double-click time (ms, multiplied to ns in wrapping 32-bit arithmetic) and area.
  void writeDoubleClick(RegistryObject hidSystem, std::int32_t timeMs, std::int32_t area);

 private:
  Registry& registry_;
};

}  // namespace touchpanel
