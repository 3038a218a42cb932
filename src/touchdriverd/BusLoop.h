#pragma once

#include <memory>

#include "providers/linux/loop/EventLoop.h"
#include "touchdriverd/BusService.h"

namespace touchpanel::driver {

/// Keeps the D-Bus side going in the event loop: connects, serves, and when the bus goes away tries again
/// every second.
class BusLoop {
 public:
  /// Neither is owned.
  BusLoop(EventLoop& loop, BusService& service);

 private:
  void connect();
  void process();

  EventLoop& loop_;
  BusService& service_;
  std::unique_ptr<Timer> retry_;
  std::unique_ptr<EventLoop::Watch> watch_;
};

}  // namespace touchpanel::driver
