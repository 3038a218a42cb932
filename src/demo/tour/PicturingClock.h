#pragma once

#include "demo/tour/Pictures.h"
#include "platform/Clock.h"

namespace touchpanel::demo {

/// The real clock, and a picture of what the user sees while it makes the panel wait for the first time.
class PicturingClock final : public Clock {
 public:
  PicturingClock(Clock& clock, Pictures& pictures) : clock_(clock), pictures_(pictures) {}
  void sleep(std::chrono::milliseconds duration) override {
    if (!isTaken_) pictures_.takeAsItIs("start-up");
    isTaken_ = true;
    clock_.sleep(duration);
  }

 private:
  Clock& clock_;
  Pictures& pictures_;
  bool isTaken_ = false;
};

}  // namespace touchpanel::demo
