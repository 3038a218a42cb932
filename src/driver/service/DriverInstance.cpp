#include "driver/service/DriverInstance.h"

#include "contract/DriverProperties.h"
#include "platform/HexText.h"

namespace touchpanel::driver {

DriverInstance::DriverInstance(const TouchscreenIdentity& identity, const ServicePorts& ports,
                               StateStore& store)
    : identity_(identity),
      ports_(ports),
      store_(store),
      driver_([this](const OutputFrame& out) { devices_.write(out); }, kindOf(identity.productId)),
      devices_(identity, ports.inputs, ports.pointers, ports.timers, ports.diagnostics, *this),
      deadline_(ports.timers.create([this] {
        driver_.tick(ports_.timers.now());
        armDeadline();
      })) {
  if (!driver_.restore(store_.load(identity_)))
    ports_.diagnostics.line("A touchscreen's saved state is damaged; what is sound of it is used.");
  saved_ = driver_.state();
  devices_.setMultiTouch(driver_.settings().mode == kMultiTouch);
  startReading();
}

void DriverInstance::removeNode(const std::string& path) {
  if (devices_.removeNode(path)) driver_.releaseAll();
}

Status DriverInstance::setProperty(std::string_view name, const Value& value) {
  const auto status = driver_.setProperty(name, value);
  if (status != kSuccess) return status;
  // Every message that hands over or takes away a calibration contains its status.
  wroteCalibration_ =
      wroteCalibration_ || value.get<Dictionary>()->contains(calibration_key::kCalibrateStatus);
  settingsChanged();
  return kSuccess;
}

void DriverInstance::settingsChanged() {
  devices_.setMultiTouch(driver_.settings().mode == kMultiTouch);
  armDeadline();
  auto state = driver_.state();
  if (state == saved_) return;
  store_.save(identity_, state);
  saved_ = std::move(state);
}

void DriverInstance::frame(const RawFrame& frame) {
  lastFrame_ = frame.time;
  driver_.process(frame);
  armDeadline();
}

void DriverInstance::armDeadline() {
  if (const auto due = driver_.nextDeadline())
    deadline_->arm(*due);
  else
    deadline_->disarm();
}

void DriverInstance::startReading() {
  if (kindOf(identity_.productId) == DeviceKind::ConfigurationOnly) return;
  const HeldCalibration known{driver_.calibration().calibrateStatus, driver_.calibration().params};
  reading_ = ports_.calibrations.start(
      identity_, known, [this](Status status, const HeldCalibration& held) { finishReading(status, held); });
}

void DriverInstance::finishReading(Status status, const HeldCalibration& held) {
  if (status != kSuccess) {
    ports_.diagnostics.line("Touchscreen " + hexText(identity_.locationId) +
                            ": its calibration cannot be read (error " + hexText(status) +
                            "); the last one known is used.");
    return;
  }
  if (wroteCalibration_) return;
  driver_.setProperty(property::kCalibration, calibrationMessage(held.calibrateStatus, held.params));
  settingsChanged();
}

}  // namespace touchpanel::driver
