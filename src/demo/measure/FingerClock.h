#pragma once

#include <chrono>

namespace touchpanel::demo {

/// The time of the fingers on the simulated touchscreens: monotonic, and able to run ahead, so that
/// taps can lie seconds apart without a wait.
class FingerClock {
 public:
  std::chrono::microseconds now() const {
    return std::chrono::duration_cast<std::chrono::microseconds>(
               std::chrono::steady_clock::now().time_since_epoch()) +
           ahead_;
  }
  void skip(std::chrono::microseconds duration) { ahead_ += duration; }

 private:
  std::chrono::microseconds ahead_{0};
};

}  // namespace touchpanel::demo
