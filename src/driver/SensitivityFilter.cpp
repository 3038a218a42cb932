#include "driver/SensitivityFilter.h"

namespace touchpanel::driver {

void SensitivityFilter::configure(const TouchSettings& settings) {
  enabled_ = settings.enableTouchSensitivity;
  time_ = std::chrono::milliseconds(settings.touchSensitivityTime);
  area_ = logicalFromArea(settings.touchSensitivityArea);
  if (!enabled_) reset();
}

void SensitivityFilter::move(Finger& finger, Contact& contact, std::chrono::microseconds now) const {
  const Point point{contact.x, contact.y};
  if (!isWithin(point, finger.anchor, area_)) {
    finger = {point, now, false};
    return;
  }
  if (!finger.resting && now - finger.since >= time_) finger = {point, now, true};
  if (!finger.resting) return;
  contact.x = finger.anchor.x;
  contact.y = finger.anchor.y;
}

void SensitivityFilter::apply(RawFrame& frame) {
  if (!enabled_) return;
  fingers_.follow(
      frame,
      [&](Finger& finger, Contact& contact) {
        finger = {{contact.x, contact.y}, frame.time, true};
      },
      [&](Finger& finger, Contact& contact) { move(finger, contact, frame.time); });
}

}  // namespace touchpanel::driver
