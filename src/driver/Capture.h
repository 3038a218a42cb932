#pragma once

#include <atomic>
#include <cstdint>

#include "driver/PrimaryFinger.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// The last captured touch, as a calibration reads it. All 0 until there is one.
struct CapturedPoint {
  std::int32_t x = 0;  ///< raw, 1..32767
  std::int32_t y = 0;
  std::int32_t pointId = 0;  ///< the target that it belongs to
  bool operator==(const CapturedPoint&) const = default;
};

/// The first stage: while a calibration runs, publishes where each finger leaves the glass, target after
/// target. A finger that leaves more than a quarter of the glass away from where it came down has dragged
/// something, such as the rectangle of a region, and is not published.
class Capture {
 public:
  /// Expects target 0 and forgets the last captured touch, which may be another run's.
  void start();
  void stop() { active_ = false; }
  bool active() const { return active_; }
  /// The next finger-up belongs to target `pointId`.
  void expect(std::int32_t pointId) { expected_ = pointId; }

  /// Call with every frame before anything is output for it, so that a client that sees the button's
  /// release can already read the point that belongs to it. Does nothing while no calibration runs.
  void observe(const RawFrame& frame);
  /// Ignores the fingers that are down now.
  void dropTouch() { finger_.reset(); }

  /// Safe from any thread.
  CapturedPoint last() const {
    const auto packed = last_.load(std::memory_order_acquire);
    return {static_cast<std::int32_t>(packed & 0xFFFFU), static_cast<std::int32_t>(packed >> 16U & 0xFFFFU),
            static_cast<std::int32_t>(packed >> 32U)};
  }

 private:
  void publish(const Contact& contact);

  bool active_ = false;
  std::int32_t expected_ = 0;
  std::atomic<std::uint64_t> last_ = 0;  ///< x, y and pointId from the lowest bit up: 16, 16 and 32 bits
  PrimaryFinger finger_;
  Contact landing_;
};

}  // namespace touchpanel::driver
