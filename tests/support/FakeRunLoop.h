#pragma once

#include <algorithm>
#include <map>
#include <vector>

#include "platform/RunLoop.h"

namespace touchpanel::testing {

/// A run loop whose time the test advances by hand.
class FakeRunLoop final : public RunLoop {
 public:
  void addSource(RunLoopSource& source) override { sources.push_back(&source); }
  void removeSource(RunLoopSource& source) override { std::erase(sources, &source); }

  TimerId startRepeatingTimer(std::chrono::milliseconds interval, std::function<void()> callback) override {
    timers_[++lastTimer_] = {interval, now + interval, std::move(callback)};
    return lastTimer_;
  }
  void invalidateTimer(TimerId timer) override { timers_.erase(timer); }

  /// Lets time pass and runs the timers that come due, in order of their due time.
  void advance(std::chrono::milliseconds duration) {
    const auto end = now + duration;
    while (true) {
      auto next = std::min_element(timers_.begin(), timers_.end(),
                                   [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
      if (next == timers_.end() || next->second.due > end) break;
      now = next->second.due;
      next->second.due += next->second.interval;
      const auto callback = next->second.callback;  // the callback may invalidate its own timer
      callback();
    }
    now = end;
  }
  /// Lets every source handle what is pending.
  void performSources() {
    for (auto* source : std::vector<RunLoopSource*>(sources)) source->perform();
  }
  std::size_t timerCount() const { return timers_.size(); }

  std::chrono::milliseconds now{0};
  std::vector<RunLoopSource*> sources;

 private:
  struct Timer {
    std::chrono::milliseconds interval{0};
    std::chrono::milliseconds due{0};
    std::function<void()> callback;
  };
  std::map<TimerId, Timer> timers_;
  TimerId lastTimer_ = 0;
};

}  // namespace touchpanel::testing
