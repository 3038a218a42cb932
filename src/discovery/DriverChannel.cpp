#include "discovery/DriverChannel.h"

namespace touchpanel {

namespace {

constexpr std::uint32_t kNanosecondsPerMillisecond = 1'000'000;

Bytes bytesOf(const _CALIB_PARAMS& params) {
  const auto image = imageOf(params);
  return {image.begin(), image.end()};
}

void addFullTouchArea(Dictionary& message) {
  message.set(calibration_key::kMinX, 0);
  message.set(calibration_key::kMinY, 0);
  message.set(calibration_key::kMaxX, kLogicalMaximum);
  message.set(calibration_key::kMaxY, kLogicalMaximum);
}

}  // namespace

void DriverChannel::setCapture(RegistryObject handle, bool on) {
  registry_.setProperty(handle, property::kCalibration, Dictionary{{calibration_key::kStatCalibrate, on}});
}

void DriverChannel::selectTarget(RegistryObject handle, std::int32_t pointId) {
  registry_.setProperty(handle, property::kCalibration, Dictionary{{calibration_key::kPointId, pointId}});
}

void DriverChannel::resetCalibration(RegistryObject handle) {
  Dictionary message{{calibration_key::kCalibrateStatus, false}};
  addFullTouchArea(message);
  registry_.setProperty(handle, property::kCalibration, message);
}

void DriverChannel::calibrationSaved(RegistryObject handle, const _CALIB_PARAMS& params) {
  Dictionary message{{calibration_key::kCalibrateStatus, true},
                     {calibration_key::kCalibParams, bytesOf(params)}};
  addFullTouchArea(message);
  registry_.setProperty(handle, property::kCalibration, message);
}

void DriverChannel::pointCalibrationCancelled(RegistryObject handle, bool status,
                                              const _CALIB_PARAMS& params) {
  registry_.setProperty(handle, property::kCalibration,
                        Dictionary{{calibration_key::kCalibrateStatus, status},
                                   {calibration_key::kCalibParams, bytesOf(params)}});
}

void DriverChannel::regionCalibrationCancelled(RegistryObject handle, bool status,
                                               const _CALIB_PARAMS& params) {
  // The singular key is what drivers know from this message.
  registry_.setProperty(handle, property::kCalibration,
                        Dictionary{{calibration_key::kCalibrateStatus, status},
                                   {calibration_key::kCalibParam, bytesOf(params)}});
}

void DriverChannel::applySettings(RegistryObject handle, const TouchSettings& settings) {
  Dictionary message;
  for (const auto& setting : kTouchSettings)
    if (setting.isOnSheet && setting.driverKey != nullptr)
      message.set(setting.driverKey, valueOf(settings, setting));
  registry_.setProperty(handle, property::kConfigration, message);
}

void DriverChannel::setMode(RegistryObject handle, const Value& mode) {
  registry_.setProperty(handle, property::kConfigration, Dictionary{{configration_key::kMode, mode}});
}

void DriverChannel::enableTouch(RegistryObject handle, bool enabled) {
  registry_.setProperty(handle, property::kConfigration,
                        Dictionary{{configration_key::kEnableTouch, enabled}});
}

bool DriverChannel::probeCalibration(RegistryObject handle) {
  return registry_.setProperty(handle, property::kCalibration, Dictionary()) == kSuccess;
}

bool DriverChannel::probeConfigration(RegistryObject handle) {
  return registry_.setProperty(handle, property::kConfigration, Dictionary()) == kSuccess;
}

std::optional<CapturedPoint> DriverChannel::readCapture(RegistryObject handle) {
  const auto properties = registry_.properties(handle);
  if (!properties) return std::nullopt;
  const auto* capture = properties->dictionary(property::kCalibration);
  if (capture == nullptr) return std::nullopt;
  return CapturedPoint{.x = capture->integer(calibration_key::kX),
                       .y = capture->integer(calibration_key::kY),
                       .pointId = capture->integer(calibration_key::kPointId)};
}

void DriverChannel::writeDoubleClick(RegistryObject hidSystem, std::int32_t timeMs, std::int32_t area) {
  // Unsigned arithmetic wraps where signed arithmetic would be undefined; the bits are the same.
  const auto nanoseconds =
      static_cast<std::int32_t>(static_cast<std::uint32_t>(timeMs) * kNanosecondsPerMillisecond);
  registry_.setProperty(hidSystem, property::kHidClickTime, nanoseconds);
  registry_.setProperty(hidSystem, property::kHidClickSpace, Array{area, area});
}

}  // namespace touchpanel
