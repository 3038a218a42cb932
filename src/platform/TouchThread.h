#pragma once

#include <functional>

namespace touchpanel {

/// The thread on which touches are handled: it waits for input nodes and for one deadline, and does nothing
/// that could keep it from them.
class TouchThread {
 public:
  virtual ~TouchThread() = default;
  /// Runs `call` on that thread, between two frames, and returns when it has run: after tens of microseconds.
  /// `call` must neither block, throw nor call run(). Called by one thread at a time, never from the touch thread.
  virtual void run(const std::function<void()>& call) = 0;
};

}  // namespace touchpanel
