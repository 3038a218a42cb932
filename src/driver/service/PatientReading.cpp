#include "driver/service/PatientReading.h"

#include <algorithm>
#include <utility>

#include "driver/CalibrationCurve.h"
#include "platform/HexText.h"

namespace touchpanel::driver {

namespace {
constexpr std::chrono::seconds kFirstPause{1};
constexpr std::chrono::seconds kLongestPause{60};
}  // namespace

PatientReading::PatientReading(const TouchscreenIdentity& identity, const ServicePorts& ports,
                               Attempted attempted, std::function<bool()> mayRepeat)
    : identity_(identity),
      reader_(ports.calibrations),
      timers_(ports.timers),
      outage_(ports.diagnostics),
      attempted_(std::move(attempted)),
      mayRepeat_(std::move(mayRepeat)),
      again_(timers_.create([this] { repeat(); })) {}

void PatientReading::start() {
  pause_ = kFirstPause;
  read();
}

void PatientReading::read() {
  again_->disarm();
  reading_.reset();
  reading_ =
      reader_.start(identity_, [this](Status status, const HeldCalibration& held) { finish(status, held); });
}

void PatientReading::finish(Status status, const HeldCalibration& held) {
  if (status == kSuccess && held.calibrateStatus && !mapsSensibly(held.params)) status = kErrorBadArgument;
  report(status);
  if (status != kSuccess && status != kErrorNotFound && status != kErrorBadArgument)
    again_->arm(timers_.now() + pause_);
  attempted_(status, held);
}

void PatientReading::repeat() {
  if (!mayRepeat_()) return again_->arm(timers_.now() + pause_);
  pause_ = std::min(pause_ * 2, kLongestPause);
  read();
}

void PatientReading::report(Status status) {
  const auto who = "Touchscreen " + hexText(identity_.locationId) + ": ";
  if (status == kSuccess || status == kErrorNotFound)
    outage_.end(who + "its calibration is read now.");
  else if (status == kErrorBadArgument)
    outage_.begin(who +
                  "the calibration that it holds maps no glass onto a screen; the last one known is used.");
  else
    outage_.begin(who + "its calibration cannot be read (error " + hexText(status) +
                  "); the last one known is used, and reading is tried again.");
}

}  // namespace touchpanel::driver
