#pragma once

#include "platform/WallClock.h"

namespace touchpanel {

/// The system's time of day.
class SystemTime final : public WallClock {
 public:
  std::chrono::sys_seconds now() const override;
};

}  // namespace touchpanel
