#pragma once

#include <chrono>
#include <cstdint>

#include "contract/TouchSettings.h"
#include "driver/ContactSet.h"
#include "driver/Point.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// Keeps a resting finger's tremor from being felt. A finger that stays within the sensitivity area for the
/// sensitivity time rests: it is reported where it came to rest until it leaves the area around that place.
/// It costs a moving finger nothing, and no touch is lost or delayed, however short.
///
///     state  | point within the area of the anchor        | point outside it
///     -------+--------------------------------------------+----------------------------------------
///     (lands)| -> resting at the landing point            |
///     resting| report the anchor                          | -> moving, anchor = point, report point
///     moving | report point; after the time at one anchor | anchor = point, since = now, report point
///            | -> resting, anchor = point                 |
class SensitivityFilter {
 public:
  void configure(const TouchSettings& settings);
  void apply(RawFrame& frame);
  void reset() { fingers_.reset(); }

 private:
  struct Finger {
    Point anchor;
    std::chrono::microseconds since{0};
    bool resting = true;
  };
  void move(Finger& finger, Contact& contact, std::chrono::microseconds now) const;

  bool enabled_ = false;
  std::chrono::milliseconds time_{0};
  std::int32_t area_ = 0;
  ContactSet<Finger> fingers_;
};

}  // namespace touchpanel::driver
