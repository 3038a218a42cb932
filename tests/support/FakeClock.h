#pragma once

#include <functional>
#include <vector>

#include "platform/Clock.h"

namespace touchpanel::testing {

/// A clock that stands still but for the sleeps asked of it. `onSleep` lets the world change meanwhile.
class FakeClock final : public Clock {
 public:
  void sleep(std::chrono::milliseconds duration) override {
    sleeps.push_back(duration);
    now += duration;
    if (onSleep) onSleep(duration);
  }

  std::chrono::milliseconds now{0};
  std::vector<std::chrono::milliseconds> sleeps;
  std::function<void(std::chrono::milliseconds)> onSleep;
};

}  // namespace touchpanel::testing
