#pragma once

#include "platform/Diagnostics.h"
#include "platform/TouchInputs.h"
#include "providers/linux/loop/EventLoop.h"

namespace touchpanel {

/// Input nodes through libevdev: grabbed, drained on every wake-up, on the monotonic clock, and brought up to
/// date when the kernel had to drop events.
class EvdevInputs final : public TouchInputs {
 public:
  EvdevInputs(EventLoop& loop, Diagnostics& diagnostics) : loop_(loop), diagnostics_(diagnostics) {}
  Status open(const std::string& node, std::unique_ptr<TouchInput>& input) override;

 private:
  EventLoop& loop_;
  Diagnostics& diagnostics_;
};

}  // namespace touchpanel
