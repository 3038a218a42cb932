#include "driver/Smoothing.h"

#include <cmath>

namespace touchpanel::driver {

namespace {
constexpr std::chrono::milliseconds kTimeConstantPerLevel{4};

double weightOf(std::chrono::microseconds step, std::chrono::microseconds timeConstant) {
  if (step.count() <= 0) return 1;
  const auto sum = static_cast<double>(step.count()) + static_cast<double>(timeConstant.count());
  return static_cast<double>(step.count()) / sum;
}
}  // namespace

void Smoothing::configure(const TouchSettings& settings) {
  timeConstant_ = settings.smoothness * kTimeConstantPerLevel;
  if (settings.smoothness == 0) reset();
}

void Smoothing::apply(RawFrame& frame) {
  if (timeConstant_.count() == 0) return;
  const double weight = weightOf(frame.time - last_, timeConstant_);
  last_ = frame.time;
  fingers_.follow(
      frame,
      [](Finger& finger, Contact& contact) {
        finger = {static_cast<double>(contact.x), static_cast<double>(contact.y)};
      },
      [weight](Finger& finger, Contact& contact) {
        finger.x += weight * (contact.x - finger.x);
        finger.y += weight * (contact.y - finger.y);
        contact.x = static_cast<std::int32_t>(std::lround(finger.x));
        contact.y = static_cast<std::int32_t>(std::lround(finger.y));
      });
}

}  // namespace touchpanel::driver
