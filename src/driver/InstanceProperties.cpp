#include "driver/InstanceProperties.h"

#include <utility>

#include "contract/DriverProperties.h"
#include "driver/SettingsProperty.h"

namespace touchpanel::driver {

Status InstanceProperties::setProperty(std::string_view name, const Value& value, CaptureRequest& capture) {
  const bool isKnown =
      name == property::kCalibration || name == property::kConfigration || name == property::kMonitor;
  if (!isKnown) return kErrorUnsupported;
  const auto* dictionary = value.get<Dictionary>();
  if (!dictionary) return kErrorBadArgument;
  if (name == property::kMonitor) return write(monitor_, *dictionary);
  return name == property::kCalibration ? write(calibration_, capture, *dictionary)
                                        : write(settings_, *dictionary);
}

Dictionary InstanceProperties::properties(bool capturing, const CapturedPoint& captured) const {
  auto calibration = toDictionary(calibration_);
  calibration.set(calibration_key::kStatCalibrate, capturing);
  calibration.set(calibration_key::kX, captured.x);
  calibration.set(calibration_key::kY, captured.y);
  calibration.set(calibration_key::kPointId, captured.pointId);
  auto all = state();
  all.set(property::kCalibration, std::move(calibration));
  return all;
}

Dictionary InstanceProperties::state() const {
  return {{property::kCalibration, toDictionary(calibration_)},
          {property::kConfigration, toDictionary(settings_)},
          {property::kMonitor, toDictionary(monitor_)}};
}

bool InstanceProperties::restore(const Dictionary& state) {
  bool all = true;
  for (const auto& [name, value] : state) {
    const auto* dictionary = value.get<Dictionary>();
    if (dictionary && name == property::kCalibration)
      all = writeAcceptable(calibration_, *dictionary) && all;
    else if (dictionary && name == property::kConfigration)
      all = writeAcceptable(settings_, *dictionary) && all;
    else if (dictionary && name == property::kMonitor)
      all = writeAcceptable(monitor_, *dictionary) && all;
    else
      all = false;
  }
  return all;
}

void configure(TouchPipeline& pipeline, const InstanceProperties& properties, std::int32_t mode,
               const CaptureRequest& capture) {
  auto settings = properties.settings();
  settings.mode = mode;
  pipeline.configure(properties.calibration());
  pipeline.configure(settings);
  pipeline.configure(properties.monitor());
  if (capture.hasStatCalibrate && capture.statCalibrate) pipeline.startCapture();
  if (capture.hasStatCalibrate && !capture.statCalibrate) pipeline.stopCapture();
  if (capture.hasPointId) pipeline.expectPoint(capture.pointId);
}

}  // namespace touchpanel::driver
