#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace touchpanel {

/// Something outside the program that a run loop watches. Owned by the provider that made it.
class RunLoopSource {
 public:
  virtual ~RunLoopSource() = default;
  /// File descriptors that become readable when there is something to do; the set never changes.
  virtual std::vector<int> descriptors() const = 0;
  /// Handles what is pending, without waiting for more. Called on the main thread; may be called for nothing.
  virtual void perform() = 0;
};

using TimerId = std::uint32_t;  ///< 0 is no timer

/// The main thread's loop. All callbacks come from it, one at a time and never inside one another.
class RunLoop {
 public:
  virtual ~RunLoop() = default;

  virtual void addSource(RunLoopSource& source) = 0;
  virtual void removeSource(RunLoopSource& source) = 0;

  /// Calls `callback` every `interval` until invalidated; the first call comes one interval from now.
  virtual TimerId startRepeatingTimer(std::chrono::milliseconds interval, std::function<void()> callback) = 0;
  /// Safe from inside the timer's own callback, and for a timer that is already gone.
  virtual void invalidateTimer(TimerId timer) = 0;
};

}  // namespace touchpanel
