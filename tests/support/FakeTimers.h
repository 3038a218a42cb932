#pragma once

#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Timers.h"

namespace touchpanel::testing {

/// Timers whose clock the test moves.
class FakeTimers final : public Timers {
 public:
  std::chrono::microseconds now() const override { return time; }
  std::unique_ptr<Timer> create(std::function<void()> callback) override {
    return std::make_unique<Armed>(*this, std::move(callback));
  }
  /// Lets time pass and fires what comes due, in order.
  void advance(std::chrono::microseconds duration) {
    const auto end = time + duration;
    int fired = 0;
    while (auto* next = nextDue(end)) {
      ASSERT_LT(++fired, 1000) << "a timer is armed for the present again and again";
      time = std::max(time, *next->due);
      next->due.reset();
      next->callback();
    }
    time = end;
  }

  std::chrono::microseconds time{0};

 private:
  struct Armed final : Timer {
    Armed(FakeTimers& owner, std::function<void()> call) : timers(owner), callback(std::move(call)) {
      timers.all_.push_back(this);
    }
    ~Armed() override { std::erase(timers.all_, this); }
    void arm(std::chrono::microseconds when) override { due = when; }
    void disarm() override { due.reset(); }

    FakeTimers& timers;
    std::function<void()> callback;
    std::optional<std::chrono::microseconds> due;
  };
  Armed* nextDue(std::chrono::microseconds end) {
    Armed* next = nullptr;
    for (auto* timer : all_)
      if (timer->due && *timer->due <= end && (!next || *timer->due < *next->due)) next = timer;
    return next;
  }

  std::vector<Armed*> all_;
};

}  // namespace touchpanel::testing
