#include "driver/CalibrationSettings.h"

#include <array>

#include "driver/CalibrationCurve.h"
#include "driver/PropertyField.h"

namespace touchpanel::driver {

namespace {
using Field = PropertyField<CalibrationSettings, std::int32_t, bool, _CALIB_PARAMS>;

constexpr std::array kFields = {
    Field{calibration_key::kCalibrateStatus, &CalibrationSettings::calibrateStatus},
    Field{calibration_key::kCalibParams, &CalibrationSettings::params},
    Field{calibration_key::kMinX, &CalibrationSettings::minX, {0, kLogicalMaximum}},
    Field{calibration_key::kMinY, &CalibrationSettings::minY, {0, kLogicalMaximum}},
    Field{calibration_key::kMaxX, &CalibrationSettings::maxX, {0, kLogicalMaximum}},
    Field{calibration_key::kMaxY, &CalibrationSettings::maxY, {0, kLogicalMaximum}}};

using CaptureField = PropertyField<CaptureRequest, std::int32_t, bool>;
constexpr CaptureField kStatCalibrateField{calibration_key::kStatCalibrate, &CaptureRequest::statCalibrate};
constexpr CaptureField kPointIdField{
    calibration_key::kPointId, &CaptureRequest::pointId, {0, calibration_limit::kMaximumPointId}};

bool writeOne(CalibrationSettings& settings, std::string_view key, const Value& value) {
  return writeField(kFields, settings,
                    key == calibration_key::kCalibParam ? calibration_key::kCalibParams : key, value);
}

bool setsCalibration(const Dictionary& dictionary) {
  using namespace calibration_key;
  return dictionary.contains(kCalibrateStatus) || dictionary.contains(kCalibParams) ||
         dictionary.contains(kCalibParam);
}
}  // namespace

Status write(CalibrationSettings& settings, CaptureRequest& capture, const Dictionary& dictionary) {
  auto candidate = settings;
  CaptureRequest request;
  for (const auto& [key, value] : dictionary) {
    bool taken = false;
    if (key == kStatCalibrateField.key)
      taken = request.hasStatCalibrate = kStatCalibrateField.write(request, value);
    else if (key == kPointIdField.key)
      taken = request.hasPointId = kPointIdField.write(request, value);
    else
      taken = writeOne(candidate, key, value);
    if (!taken) return kErrorBadArgument;
  }
  // Judged as a whole: a new lower bound may be valid only together with the new upper bound.
  if (!hasExtent(candidate)) return kErrorBadArgument;
  if (setsCalibration(dictionary) && candidate.calibrateStatus && !mapsSensibly(candidate.params))
    return kErrorBadArgument;
  settings = candidate;
  capture = request;
  return kSuccess;
}

bool writeAcceptable(CalibrationSettings& settings, const Dictionary& dictionary) {
  bool all = true;
  auto candidate = settings;
  for (const auto& [key, value] : dictionary) all = writeOne(candidate, key, value) && all;
  if (!hasExtent(candidate)) {
    candidate.minX = settings.minX;
    candidate.minY = settings.minY;
    candidate.maxX = settings.maxX;
    candidate.maxY = settings.maxY;
    all = false;
  }
  if (candidate.calibrateStatus && !mapsSensibly(candidate.params)) {
    candidate.calibrateStatus = settings.calibrateStatus;
    candidate.params = settings.params;
    all = false;
  }
  settings = candidate;
  return all;
}

Dictionary toDictionary(const CalibrationSettings& settings) {
  Dictionary dictionary;
  for (const auto& field : kFields) dictionary.set(field.key, field.read(settings));
  return dictionary;
}

Dictionary calibrationMessage(bool calibrateStatus, const _CALIB_PARAMS& params) {
  return {{calibration_key::kCalibrateStatus, calibrateStatus},
          {calibration_key::kCalibParams, readMember(params)}};
}

}  // namespace touchpanel::driver
