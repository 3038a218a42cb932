#include "driver/Capture.h"

#include <algorithm>
#include <cstdlib>

#include "contract/DriverProperties.h"

namespace touchpanel::driver {
namespace {

std::uint64_t packed(const CapturedPoint& point) {
  return static_cast<std::uint64_t>(point.pointId) << 32U | static_cast<std::uint64_t>(point.y) << 16U |
         static_cast<std::uint64_t>(point.x);
}

bool isDrag(const Contact& from, const Contact& to) {
  constexpr std::int32_t kReach = kLogicalMaximum / 4;
  return std::abs(to.x - from.x) > kReach || std::abs(to.y - from.y) > kReach;
}

}  // namespace

void Capture::start() {
  active_ = true;
  expected_ = 0;
  last_.store(0, std::memory_order_release);
  finger_.reset();
}

void Capture::observe(const RawFrame& frame) {
  if (!active_) return;
  finger_.follow(frame, [this](PrimaryFinger::Event event, const Contact& contact) {
    if (event == PrimaryFinger::Event::Down) landing_ = contact;
    if (event == PrimaryFinger::Event::Up && !isDrag(landing_, contact)) publish(contact);
  });
}

void Capture::publish(const Contact& contact) {
  // A reader takes a 0 for "no touch yet"; a touch at the very edge moves by one unit instead of being lost.
  last_.store(packed({std::max(contact.x, 1), std::max(contact.y, 1), expected_}), std::memory_order_release);
  expected_ = std::min(expected_ + 1, calibration_limit::kMaximumPointId);
}

}  // namespace touchpanel::driver
