#pragma once

#include <chrono>
#include <ctime>

namespace touchpanel {

/// The kernel's monotonic clock, which input events are stamped by, too.
inline std::chrono::microseconds monotonicTime() {
  timespec time{};
  ::clock_gettime(CLOCK_MONOTONIC, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_nsec / 1000);
}

}  // namespace touchpanel
