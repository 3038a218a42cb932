#pragma once

#include "platform/Clock.h"

namespace touchpanel {

/// Real time. A sleep blocks the thread and nothing of the event loop runs meanwhile: a device exchange must
/// not be interrupted by another callback.
class BlockingClock final : public Clock {
 public:
  void sleep(std::chrono::milliseconds duration) override;
};

}  // namespace touchpanel
