#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace touchpanel {

/// Calls back once after each arming. Destroying it disarms it.
class Timer {
 public:
  virtual ~Timer() = default;
  /// Replaces an earlier arming. A time that has passed fires at once, but not from inside this call.
  virtual void arm(std::chrono::microseconds when) = 0;
  virtual void disarm() = 0;
};

/// The event loop's monotonic clock.
class Timers {
 public:
  virtual ~Timers() = default;
  virtual std::chrono::microseconds now() const = 0;
  virtual std::unique_ptr<Timer> create(std::function<void()> callback) = 0;
};

}  // namespace touchpanel
