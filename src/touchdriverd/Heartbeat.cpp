#include "touchdriverd/Heartbeat.h"

#include <systemd/sd-daemon.h>

namespace touchpanel::driver {

Heartbeat::Heartbeat(Timers& timers, TouchThread& touches)
    : timers_(timers), touches_(touches), next_(timers.create([this] { beat(); })) {
  ::sd_notify(0, "READY=1");
  std::uint64_t limitUs = 0;
  if (::sd_watchdog_enabled(0, &limitUs) <= 0) return;
  interval_ = std::chrono::microseconds(limitUs / 3);
  beat();
}

void Heartbeat::beat() {
  touches_.run([] {});
  ::sd_notify(0, "WATCHDOG=1");
  next_->arm(timers_.now() + interval_);
}

}  // namespace touchpanel::driver
