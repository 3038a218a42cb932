#pragma once

#include "platform/WallClock.h"

namespace touchpanel::testing {

/// A time of day that a test sets.
struct FakeWallClock final : WallClock {
  std::chrono::sys_seconds now() const override { return time; }

  std::chrono::sys_seconds time{std::chrono::seconds(1'800'000'000)};
};

}  // namespace touchpanel::testing
