#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

#include "platform/TouchFrames.h"
#include "platform/TouchInputs.h"
#include "providers/linux/input/ContactMatching.h"

namespace touchpanel {

/// The values that a device reports on one axis, bounds included.
struct AxisRange {
  std::int32_t minimum = 0;
  std::int32_t maximum = 0;
  bool operator==(const AxisRange&) const = default;
};

inline bool hasExtent(AxisRange range) { return range.minimum < range.maximum; }

/// Any range scaled to 0..32767, rounded to nearest; values outside are clamped. A range without extent gives
/// 0.
std::int32_t scaledToLogical(std::int32_t value, AxisRange range);

/// Makes frames of input events (linux/input-event-codes.h) of a node by what it reports of touches:
///
///     MultiTouchB    ABS_MT_* of slots, each with ABS_MT_TRACKING_ID; the first kMaximumContacts slots count
///     MultiTouchA    all contacts in each report, SYN_MT_REPORT after each, with or without ABS_MT_TRACKING_ID
///     SingleTouch    ABS_X, ABS_Y, BTN_TOUCH; so does a Pen, whose nearness is no touch
///     AbsoluteMouse  ABS_X, ABS_Y, BTN_LEFT
///
/// Whatever comes in, at most kMaximumContacts contacts with ids of their own and places in range come out.
class FrameAssembler {
 public:
  using Sink = std::function<void(const RawFrame&)>;

  FrameAssembler(InputReports reports, AxisRange x, AxisRange y, Sink sink);

  /// One event as the device sent it, or as its state is asked for. SYN_REPORT ends a frame and hands it on. When
  /// a finger was replaced by another between two reports, a frame without that contact goes before, so that it
  /// is not taken for a jump. No allocation.
  void event(std::uint16_t type, std::uint16_t code, std::int32_t value, std::chrono::microseconds time);

 private:
  void oneFinger(std::uint16_t type, std::uint16_t code, std::int32_t value);
  void slotted(std::uint16_t code, std::int32_t value);
  void listed(std::uint16_t type, std::uint16_t code, std::int32_t value);
  void endListed();
  void report(std::chrono::microseconds time);
  void emit(std::chrono::microseconds time, bool withReplaced);

  InputReports reports_;
  AxisRange rangeX_;
  AxisRange rangeY_;
  Sink sink_;
  ContactSlots slots_{};
  std::int32_t current_ = 0;  ///< slot
  ListedContact next_;
  bool hasNext_ = false;  ///< a place has come since the last SYN_MT_REPORT
  ContactMatching matching_;
};

}  // namespace touchpanel
