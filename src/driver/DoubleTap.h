#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "driver/Point.h"

namespace touchpanel::driver {

/// Helps a second tap to be a double click: one that lands within the double-click time after the last tap
/// ended, and within the double-click area around it, counts as landing on that tap's own point. A tap is a
/// touch that stays within the area and is no longer than the double-click time.
class DoubleTap {
 public:
  /// A time of 0 switches the help off.
  void configure(std::chrono::milliseconds time, std::int32_t area) {
    time_ = time;
    area_ = logicalFromArea(area);
  }
  std::int32_t area() const { return area_; }

  /// A finger lands at `point`; returns the point of the tap that this one repeats.
  std::optional<Point> land(Point point, std::chrono::microseconds now) {
    const bool repeats = lastTap_ && now - lastTapEnd_ <= time_ && isWithin(point, *lastTap_, area_);
    const auto target = repeats ? lastTap_ : std::nullopt;
    lastTap_.reset();
    landing_ = point;
    anchor_ = target.value_or(point);
    landed_ = now;
    tapping_ = time_.count() > 0;
    return target;
  }
  void move(Point point) { tapping_ = tapping_ && isWithin(point, landing_, area_); }
  void leave(std::chrono::microseconds now) {
    if (!tapping_ || now - landed_ > time_) return;
    lastTap_ = anchor_;
    lastTapEnd_ = now;
  }
  void reset() { lastTap_.reset(); }

 private:
  std::chrono::milliseconds time_{0};
  std::int32_t area_ = 0;
  Point landing_;
  Point anchor_;
  std::chrono::microseconds landed_{0};
  bool tapping_ = false;
  std::optional<Point> lastTap_;
  std::chrono::microseconds lastTapEnd_{0};
};

}  // namespace touchpanel::driver
