#pragma once

#include <array>
#include <cstdint>
#include <span>

#include <linux/input.h>

#include "platform/TouchFrames.h"

namespace touchpanel {

/// A batch of input events that ends with SYN_REPORT, laid out to go out in one write. Empty when nothing
/// changed.
template <std::size_t Capacity>
class EventBatch {
 public:
  void clear() { size_ = 0; }
  void add(int type, int code, std::int32_t value) {
    auto& event = events_[size_++];
    event.type = static_cast<std::uint16_t>(type);
    event.code = static_cast<std::uint16_t>(code);
    event.value = value;
  }
  std::span<const input_event> finish() {
    if (size_ > 0) add(EV_SYN, SYN_REPORT, 0);
    return {events_.data(), size_};
  }

 private:
  std::array<input_event, Capacity> events_{};
  std::size_t size_ = 0;
};

/// The events that take an absolute pointer with a left and a right button from one output frame to the next.
///
/// A press always states both axes: another pointer may have moved the desktop's cursor meanwhile. The kernel
/// drops a value that the device has already, so an unchanged axis goes one unit aside and back in that report.
class PointerEvents {
 public:
  /// Valid until the next call.
  std::span<const input_event> next(const OutputFrame& frame);

 private:
  void axis(int code, std::int32_t value, std::int32_t& last, bool press);

  std::int32_t x_ = 0;  // as the axes of a new device
  std::int32_t y_ = 0;
  bool left_ = false;
  bool right_ = false;
  EventBatch<7> batch_;
};

/// The same for a multi-touch device: a slot per contact id, a fresh tracking id per landing, and the single
/// touch (BTN_TOUCH, ABS_X, ABS_Y) of the first contact for readers that know no slots.
class ContactEvents {
 public:
  std::span<const input_event> next(const OutputFrame& frame);

 private:
  struct Slot {
    bool down = false;
    std::int32_t x = -1;
    std::int32_t y = -1;
  };
  void leave(std::size_t id);
  void place(const Contact& contact);
  void singleTouch(const OutputFrame& frame);

  std::array<Slot, kMaximumContacts> slots_{};
  bool touching_ = false;
  std::int32_t trackingId_ = 0;
  EventBatch<4 * kMaximumContacts + 2 * kMaximumContacts + 4> batch_;
};

}  // namespace touchpanel
