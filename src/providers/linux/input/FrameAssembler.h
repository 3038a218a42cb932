#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>

#include "platform/TouchFrames.h"

namespace touchpanel {

/// The values that a device reports on one axis, bounds included.
struct AxisRange {
  std::int32_t minimum = 0;
  std::int32_t maximum = 0;
};

/// Any range scaled to 0..32767, rounded to nearest; values outside are clamped. A range without extent gives
/// 0.
std::int32_t scaledToLogical(std::int32_t value, AxisRange range);

/// Makes frames of input events (linux/input-event-codes.h) of either kind of touchscreen: multi-touch slots
/// (ABS_MT_*), of which the first kMaximumContacts count, or a single touch (ABS_X, ABS_Y, BTN_TOUCH).
class FrameAssembler {
 public:
  using Sink = std::function<void(const RawFrame&)>;

  FrameAssembler(bool multiTouch, AxisRange x, AxisRange y, Sink sink);

  /// One event as the device sent it. SYN_REPORT ends a frame and hands it on. When a slot's finger was
  /// replaced by another between two reports, a frame without that contact goes before, so that it is not
  /// taken for a jump.
  void event(std::uint16_t type, std::uint16_t code, std::int32_t value, std::chrono::microseconds time);

 private:
  struct Slot {
    bool down = false;
    bool wasDown = false;
    bool replaced = false;
    std::int32_t x = 0;
    std::int32_t y = 0;
  };
  void absolute(std::uint16_t code, std::int32_t value);
  void track(Slot& slot, bool down);
  void report(std::chrono::microseconds time);
  void emit(std::chrono::microseconds time, bool withReplaced);

  bool multiTouch_;
  AxisRange rangeX_;
  AxisRange rangeY_;
  Sink sink_;
  std::int32_t current_ = 0;
  std::array<Slot, kMaximumContacts> slots_{};
};

}  // namespace touchpanel
