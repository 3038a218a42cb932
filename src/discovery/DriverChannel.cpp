#include "discovery/DriverChannel.h"

#include "discovery/Pairing.h"

namespace touchpanel {

namespace {

constexpr std::uint32_t kNanosecondsPerMillisecond = 1'000'000;
constexpr int kAnyFlag = 1;

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

Status DriverChannel::setCapture(RegistryObject handle, bool on) {
  return registry_.setProperty(handle, property::kCalibration,
                               Dictionary{{calibration_key::kStatCalibrate, on}});
}

Status DriverChannel::selectTarget(RegistryObject handle, std::int32_t pointId) {
  return registry_.setProperty(handle, property::kCalibration,
                               Dictionary{{calibration_key::kPointId, pointId}});
}

Status DriverChannel::resetCalibration(RegistryObject handle) {
  Dictionary message{{calibration_key::kCalibrateStatus, false}};
  addFullTouchArea(message);
  return registry_.setProperty(handle, property::kCalibration, message);
}

Status DriverChannel::calibrationSaved(RegistryObject handle, const _CALIB_PARAMS& params) {
  Dictionary message{{calibration_key::kCalibrateStatus, true},
                     {calibration_key::kCalibParams, bytesOf(params)}};
  addFullTouchArea(message);
  return registry_.setProperty(handle, property::kCalibration, message);
}

Status DriverChannel::pointCalibrationCancelled(RegistryObject handle, bool status,
                                                const _CALIB_PARAMS& params) {
  return registry_.setProperty(handle, property::kCalibration,
                               Dictionary{{calibration_key::kCalibrateStatus, status},
                                          {calibration_key::kCalibParams, bytesOf(params)}});
}

Status DriverChannel::regionCalibrationCancelled(RegistryObject handle, bool status,
                                                 const _CALIB_PARAMS& params) {
  // The singular key is what drivers know from this message.
  return registry_.setProperty(handle, property::kCalibration,
                               Dictionary{{calibration_key::kCalibrateStatus, status},
                                          {calibration_key::kCalibParam, bytesOf(params)}});
}

Status DriverChannel::applySettings(RegistryObject handle, const TouchSettings& settings) {
  Dictionary message;
  for (const auto& setting : kTouchSettings)
    if (setting.isOnSheet && setting.driverKey != nullptr)
      message.set(setting.driverKey, valueOf(settings, setting));
  return registry_.setProperty(handle, property::kConfigration, message);
}

Status DriverChannel::setMode(RegistryObject handle, const Value& mode) {
  return registry_.setProperty(handle, property::kConfigration, Dictionary{{configration_key::kMode, mode}});
}

Status DriverChannel::enableTouch(RegistryObject handle, bool enabled) {
  return registry_.setProperty(handle, property::kConfigration,
                               Dictionary{{configration_key::kEnableTouch, enabled}});
}

bool DriverChannel::isTouchEnabled(RegistryObject handle) {
  const auto properties = registry_.properties(handle);
  const auto* settings = properties ? properties->dictionary(property::kConfigration) : nullptr;
  return settings == nullptr || !settings->contains(configration_key::kEnableTouch) ||
         settings->boolean(configration_key::kEnableTouch);
}

bool DriverChannel::probeCalibration(RegistryObject handle) {
  return registry_.setProperty(handle, property::kCalibration, Dictionary()) != kErrorNoDevice;
}

bool DriverChannel::probeConfigration(RegistryObject handle) {
  return registry_.setProperty(handle, property::kConfigration, Dictionary()) != kErrorNoDevice;
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

Status DriverChannel::writeDoubleClick(RegistryObject hidSystem, std::int32_t timeMs, std::int32_t area) {
  // Unsigned arithmetic wraps where signed arithmetic would be undefined; the bits are the same.
  const auto nanoseconds =
      static_cast<std::int32_t>(static_cast<std::uint32_t>(timeMs) * kNanosecondsPerMillisecond);
  const Status status = writeDoubleClickTo(hidSystem, nanoseconds, area);
  if (status != kErrorNoDevice) return status;
  for (const auto instance : registry_.instancesOf(class_name::kTouchDriver)) {
    RegistryObject found = 0;
    scan(registry_, instance, kAnyFlag, found, class_name::kHidSystem);
    if (found != 0 && writeDoubleClickTo(found, nanoseconds, area) == kSuccess) return kSuccess;
  }
  return status;
}

Status DriverChannel::writeDoubleClickTo(RegistryObject hidSystem, std::int32_t nanoseconds,
                                         std::int32_t area) {
  const Status time = registry_.setProperty(hidSystem, property::kHidClickTime, nanoseconds);
  const Status space = registry_.setProperty(hidSystem, property::kHidClickSpace, Array{area, area});
  return time != kSuccess ? time : space;
}

}  // namespace touchpanel
