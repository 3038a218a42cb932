#pragma once

#include <chrono>
#include <optional>

#include "contract/TouchSettings.h"
#include "driver/ContactSet.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// Draws a trembling line smooth: each finger is followed by a first-order low-pass whose time constant is 4
/// ms per smoothing level, whatever the rate of the frames. Level 0 follows exactly; a finger lands
/// unfiltered. One that stops, of which no frame speaks any more, is followed further at deadlines until it is
/// reached.
class Smoothing {
 public:
  void configure(const TouchSettings& settings);
  void apply(RawFrame& frame);
  /// When settled() is due; none while every finger is reached.
  std::optional<std::chrono::microseconds> deadline() const;
  /// The last frame, followed further up to `now`.
  RawFrame settled(std::chrono::microseconds now);
  /// Call with each frame before apply(): when a finger has left that was not reached yet, the frame in which
  /// it is.
  std::optional<RawFrame> ending(const RawFrame& frame) const;
  void reset();

 private:
  struct Finger {
    double x = 0;
    double y = 0;
  };
  std::chrono::microseconds timeConstant_{0};
  ContactSet<Finger> fingers_;
  RawFrame aim_;       ///< where the fingers are
  RawFrame followed_;  ///< where they are reported
};

}  // namespace touchpanel::driver
