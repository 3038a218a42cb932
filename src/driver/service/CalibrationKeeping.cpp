#include "driver/service/CalibrationKeeping.h"

namespace touchpanel::driver {

namespace {
constexpr std::chrono::seconds kLongestEnd{1};

bool isHeldIn(const CalibrationSettings& settings, const HeldCalibration& held) {
  return calibrationMessage(settings.calibrateStatus, settings.params) ==
         calibrationMessage(held.calibrateStatus, held.params);
}
}  // namespace

CalibrationKeeping::CalibrationKeeping(const TouchscreenIdentity& identity, const ServicePorts& ports,
                                       InstanceProperties& properties, Owner& owner)
    : properties_(properties),
      owner_(owner),
      timers_(ports.timers),
      patience_(timers_.create([this] { bringKeptInForce(); })),
      reading_(
          identity, ports,
          [this](Status status, const HeldCalibration& held) { readingAttempted(status, held); },
          [this] { return !owner_.capturing(); }) {}

void CalibrationKeeping::keep(const CalibrationSettings& remembered) {
  kept_ = remembered;
  lastSeen_ = toDictionary(kept_);
}

void CalibrationKeeping::written(const std::string& client) {
  auto now = toDictionary(properties_.calibration());
  if (now == lastSeen_) return;
  patience_->disarm();
  client_ = client;
  inForce_ = now == toDictionary(kept_) ? InForce::Kept : InForce::Trial;
  lastSeen_ = std::move(now);
}

void CalibrationKeeping::clientLeft(const std::string& client) {
  if (inForce_ == InForce::Trial && client == client_) endTrial();
}

void CalibrationKeeping::allClientsLeft() {
  if (inForce_ == InForce::Trial) endTrial();
}

void CalibrationKeeping::endTrial() {
  inForce_ = InForce::Ended;
  patience_->arm(timers_.now() + kLongestEnd);
  reading_.start();
}

void CalibrationKeeping::bringKeptInForce() {
  patience_->disarm();
  inForce_ = InForce::Kept;
  properties_.setCalibration(kept_);
  lastSeen_ = toDictionary(kept_);
  owner_.calibrationChanged();
}

void CalibrationKeeping::readingAttempted(Status status, const HeldCalibration& held) {
  if (status == kSuccess) {
    // An accepted trial is kept as a whole; the touch area is in no touchscreen.
    if (inForce_ == InForce::Ended && isHeldIn(properties_.calibration(), held))
      kept_ = properties_.calibration();
    kept_.calibrateStatus = held.calibrateStatus;
    kept_.params = held.params;
  }
  if (inForce_ == InForce::Ended || (status == kSuccess && inForce_ == InForce::Kept))
    bringKeptInForce();
  else if (status == kSuccess)
    owner_.calibrationChanged();
}

}  // namespace touchpanel::driver
