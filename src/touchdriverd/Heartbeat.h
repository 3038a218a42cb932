#pragma once

#include <memory>

#include "platform/Timers.h"
#include "platform/TouchThread.h"

namespace touchpanel::driver {

/// Tells the service manager that the service is ready, and from then on that it lives, as often as it wants to hear
/// that: each time the main loop has had a call run by the touch thread. One of them that hangs keeps silent, and the
/// service is started anew. Does nothing where no service manager asks.
class Heartbeat {
 public:
  /// Neither is owned.
  Heartbeat(Timers& timers, TouchThread& touches);

 private:
  void beat();

  Timers& timers_;
  TouchThread& touches_;
  std::chrono::microseconds interval_{0};
  std::unique_ptr<Timer> next_;
};

}  // namespace touchpanel::driver
