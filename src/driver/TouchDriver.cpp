#include "driver/TouchDriver.h"

#include <algorithm>
#include <utility>

#include "contract/DriverProperties.h"
#include "driver/Point.h"
#include "driver/TouchPipeline.h"

namespace touchpanel::driver {

TouchDriver::TouchDriver(Sink output, DeviceKind kind)
    : pipeline_(std::make_unique<TouchPipeline>(std::move(output), kind)) {}

TouchDriver::~TouchDriver() = default;

Status TouchDriver::setProperty(std::string_view name, const Value& value) {
  const bool isCalibration = name == property::kCalibration;
  const bool isMonitor = name == property::kMonitor;
  if (!isCalibration && !isMonitor && name != property::kConfigration) return kErrorUnsupported;
  const auto* dictionary = value.get<Dictionary>();
  if (!dictionary) return kErrorBadArgument;
  if (isMonitor) return writeMonitor(*dictionary);
  return isCalibration ? writeCalibration(*dictionary) : writeConfigration(*dictionary);
}

Status TouchDriver::writeCalibration(const Dictionary& dictionary) {
  CaptureRequest capture;
  if (const auto status = write(calibration_, capture, dictionary); status != kSuccess) return status;
  pipeline_->configure(calibration_);
  if (capture.hasStatCalibrate) {
    if (capture.statCalibrate)
      pipeline_->startCapture();
    else
      pipeline_->stopCapture();
  }
  if (capture.hasPointId) pipeline_->expectPoint(capture.pointId);
  return kSuccess;
}

Status TouchDriver::writeConfigration(const Dictionary& dictionary) {
  if (const auto status = write(settings_, dictionary); status != kSuccess) return status;
  pipeline_->configure(settings_);
  return kSuccess;
}

Status TouchDriver::writeMonitor(const Dictionary& dictionary) {
  if (const auto status = write(monitor_, dictionary); status != kSuccess) return status;
  pipeline_->configure(monitor_);
  return kSuccess;
}

Dictionary TouchDriver::properties() const {
  auto calibration = toDictionary(calibration_);
  const auto& captured = pipeline_->capture().last();
  calibration.set(calibration_key::kStatCalibrate, capturing());
  calibration.set(calibration_key::kX, captured.x);
  calibration.set(calibration_key::kY, captured.y);
  calibration.set(calibration_key::kPointId, captured.pointId);
  return {{property::kCalibration, std::move(calibration)},
          {property::kConfigration, toDictionary(settings_)},
          {property::kMonitor, toDictionary(monitor_)}};
}

void TouchDriver::process(const RawFrame& frame) { pipeline_->process(frame); }

std::optional<std::chrono::microseconds> TouchDriver::nextDeadline() const {
  return pipeline_->nextDeadline();
}

void TouchDriver::tick(std::chrono::microseconds now) { pipeline_->tick(now); }

void TouchDriver::setDoubleClick(std::chrono::milliseconds time, std::int32_t area) {
  pipeline_->setDoubleClick(std::max(time, std::chrono::milliseconds(0)),
                            std::clamp(area, 0, configration_limit::kMaximumArea));
}

void TouchDriver::releaseAll() { pipeline_->releaseAll(); }

bool TouchDriver::capturing() const { return pipeline_->capture().active(); }

Dictionary TouchDriver::state() const {
  return {{property::kCalibration, toDictionary(calibration_)},
          {property::kConfigration, toDictionary(settings_)},
          {property::kMonitor, toDictionary(monitor_)}};
}

bool TouchDriver::restore(const Dictionary& state) {
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
  pipeline_->configure(calibration_);
  pipeline_->configure(settings_);
  pipeline_->configure(monitor_);
  return all;
}

}  // namespace touchpanel::driver
