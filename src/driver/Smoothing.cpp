#include "driver/Smoothing.h"

#include <cmath>

#include "driver/ContactIds.h"

namespace touchpanel::driver {

namespace {
constexpr std::chrono::milliseconds kTimeConstantPerLevel{4};
/// No shorter than what lies between two frames of most touchscreens, so that it comes between none of them.
constexpr std::chrono::milliseconds kSettlingStep{16};

double weightOf(std::chrono::microseconds step, std::chrono::microseconds timeConstant) {
  if (step.count() == 0 || timeConstant.count() == 0) return 1;
  if (step.count() < 0) return 0;  // of before a deadline that was just met
  const auto sum = static_cast<double>(step.count()) + static_cast<double>(timeConstant.count());
  return static_cast<double>(step.count()) / sum;
}
}  // namespace

void Smoothing::configure(const TouchSettings& settings) {
  timeConstant_ = settings.smoothness * kTimeConstantPerLevel;
}

void Smoothing::apply(RawFrame& frame) {
  aim_ = frame;
  const double weight = weightOf(frame.time - followed_.time, timeConstant_);
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
  followed_ = frame;
}

std::optional<std::chrono::microseconds> Smoothing::deadline() const {
  for (std::size_t i = 0; i < aim_.count; ++i)
    if (aim_.contacts[i] != followed_.contacts[i]) return followed_.time + kSettlingStep;
  return std::nullopt;
}

RawFrame Smoothing::settled(std::chrono::microseconds now) {
  auto frame = aim_;
  frame.time = now;
  apply(frame);
  return frame;
}

std::optional<RawFrame> Smoothing::ending(const RawFrame& frame) const {
  const auto staying = idsOf(frame);
  std::optional<RawFrame> end;
  for (std::size_t i = 0; i < aim_.count; ++i) {
    const auto& aim = aim_.contacts[i];
    if ((staying & idOf(aim)) || aim == followed_.contacts[i]) continue;
    if (!end) end = followed_;
    end->contacts[i] = aim;
  }
  if (end) end->time = frame.time;
  return end;
}

void Smoothing::reset() {
  fingers_.reset();
  aim_ = followed_ = {};
}

}  // namespace touchpanel::driver
