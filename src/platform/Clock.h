#pragma once

#include <chrono>

namespace touchpanel {

/// The only way in which the logic lets time pass.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Blocks the calling thread for at least `duration`. No callback is delivered meanwhile.
  virtual void sleep(std::chrono::milliseconds duration) = 0;
};

}  // namespace touchpanel
