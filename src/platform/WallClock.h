#pragma once

#include <chrono>

namespace touchpanel {

/// The time of day, for records that people read. It may jump, also backwards.
class WallClock {
 public:
  virtual ~WallClock() = default;
  virtual std::chrono::sys_seconds now() const = 0;
};

}  // namespace touchpanel
