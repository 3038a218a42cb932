#pragma once

#include <string_view>

#include "contract/TouchSettings.h"
#include "driver/CalibrationSettings.h"
#include "driver/Capture.h"
#include "driver/MonitorProperty.h"
#include "driver/TouchPipeline.h"
#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel::driver {

/// What a control panel writes to and reads from a driver instance. No touches: those go through a pipeline, which
/// is told of every change.
class InstanceProperties {
 public:
  /// The property write of a control panel, see TouchDriver::setProperty(). What it asks of the capture is in
  /// `capture`.
  Status setProperty(std::string_view name, const Value& value, CaptureRequest& capture);
  /// All properties as a control panel reads them.
  Dictionary properties(bool capturing, const CapturedPoint& captured) const;

  /// What lasts, as a dictionary that restore() takes back after a restart.
  Dictionary state() const;
  /// Takes what is valid of `state` and leaves the rest as it is; returns false when anything was refused.
  bool restore(const Dictionary& state);

  const CalibrationSettings& calibration() const { return calibration_; }
  void setCalibration(const CalibrationSettings& calibration) { calibration_ = calibration; }
  const TouchSettings& settings() const { return settings_; }
  const MonitorPlacement& monitor() const { return monitor_; }

 private:
  CalibrationSettings calibration_;
  TouchSettings settings_;
  MonitorPlacement monitor_;
};

/// Puts what has been written in force, with the touch mode `mode`.
void configure(TouchPipeline& pipeline, const InstanceProperties& properties, std::int32_t mode,
               const CaptureRequest& capture = {});

}  // namespace touchpanel::driver
