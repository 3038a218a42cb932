#include "driver/service/CaptureOwners.h"

#include <algorithm>

#include "contract/DriverProperties.h"

namespace touchpanel::driver {

namespace {
constexpr std::chrono::seconds kLongestIdle{60};

void end(DriverInstance& instance) {
  instance.setProperty(property::kCalibration, Dictionary{{calibration_key::kStatCalibrate, false}});
}
}  // namespace

bool CaptureOwners::owns(const std::string& client, DriverInstance& instance) const {
  const auto capture = captures_.find(&instance);
  return capture != captures_.end() && capture->second.client == client;
}

bool CaptureOwners::refuses(const std::string& client, DriverInstance& instance, std::string_view name,
                            const Value& value) const {
  const auto* message = name == property::kCalibration ? value.get<Dictionary>() : nullptr;
  return message && captures_.contains(&instance) && !owns(client, instance) &&
         (message->contains(calibration_key::kStatCalibrate) || message->contains(calibration_key::kPointId));
}

void CaptureOwners::written(const std::string& client, DriverInstance& instance) {
  if (!instance.capturing()) return withdraw(instance);
  const auto [capture, isNew] = captures_.try_emplace(&instance);
  if (!isNew) return;
  const auto since = timers_.now();
  capture->second = {client, timers_.create([this, &instance, since] { checkIdle(instance, since); })};
  capture->second.idle->arm(since + kLongestIdle);
}

void CaptureOwners::checkIdle(DriverInstance& instance, std::chrono::microseconds since) {
  const auto due = std::max(since, instance.lastFrame()) + kLongestIdle;
  if (timers_.now() < due) return captures_.at(&instance).idle->arm(due);
  end(instance);
  captures_.erase(&instance);
}

void CaptureOwners::clientLeft(const std::string& client) {
  std::erase_if(captures_, [&](const auto& capture) {
    if (capture.second.client != client) return false;
    end(*capture.first);
    return true;
  });
}

void CaptureOwners::allClientsLeft() {
  for (const auto& [instance, capture] : captures_) end(*instance);
  captures_.clear();
}

}  // namespace touchpanel::driver
