#pragma once

#include <condition_variable>
#include <mutex>
#include <stop_token>

#include "platform/Clock.h"

namespace touchpanel::driver {

/// A clock for a worker thread, whose sleeps end at once when the worker is asked to stop.
class StoppableClock final : public Clock {
 public:
  explicit StoppableClock(std::stop_token stop) : stop_(std::move(stop)) {}
  void sleep(std::chrono::milliseconds duration) override {
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, stop_, duration, [] { return false; });
  }

 private:
  std::stop_token stop_;
  std::mutex mutex_;
  std::condition_variable_any wake_;
};

}  // namespace touchpanel::driver
