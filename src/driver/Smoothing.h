#pragma once

#include <chrono>

#include "contract/TouchSettings.h"
#include "driver/ContactSet.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// Draws a trembling line smooth: each finger is followed by a first-order low-pass whose time constant is 4
/// ms per smoothing level, whatever the rate of the frames. Level 0 follows exactly; a finger lands
/// unfiltered.
class Smoothing {
 public:
  void configure(const TouchSettings& settings);
  void apply(RawFrame& frame);
  void reset() { fingers_.reset(); }

 private:
  struct Finger {
    double x = 0;
    double y = 0;
  };
  std::chrono::microseconds timeConstant_{0};
  std::chrono::microseconds last_{0};
  ContactSet<Finger> fingers_;
};

}  // namespace touchpanel::driver
