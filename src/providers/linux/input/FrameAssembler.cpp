#include "providers/linux/input/FrameAssembler.h"

#include <algorithm>
#include <utility>

#include <linux/input-event-codes.h>

#include "contract/DriverProperties.h"

namespace touchpanel {

std::int32_t scaledToLogical(std::int32_t value, AxisRange range) {
  const auto extent = std::int64_t{range.maximum} - range.minimum;
  if (extent <= 0) return 0;
  const auto offset = std::clamp(std::int64_t{value} - range.minimum, std::int64_t{0}, extent);
  return static_cast<std::int32_t>((offset * kLogicalMaximum + extent / 2) / extent);
}

FrameAssembler::FrameAssembler(bool multiTouch, AxisRange x, AxisRange y, Sink sink)
    : multiTouch_(multiTouch), rangeX_(x), rangeY_(y), sink_(std::move(sink)) {}

void FrameAssembler::event(std::uint16_t type, std::uint16_t code, std::int32_t value,
                           std::chrono::microseconds time) {
  if (type == EV_ABS) absolute(code, value);
  if (type == EV_KEY && code == BTN_TOUCH && !multiTouch_) track(slots_[0], value != 0);
  if (type == EV_SYN && code == SYN_REPORT) report(time);
}

void FrameAssembler::absolute(std::uint16_t code, std::int32_t value) {
  if (!multiTouch_) {
    if (code == ABS_X) slots_[0].x = value;
    if (code == ABS_Y) slots_[0].y = value;
    return;
  }
  if (code == ABS_MT_SLOT) current_ = value;
  if (current_ < 0 || current_ >= static_cast<std::int32_t>(slots_.size())) return;
  auto& slot = slots_[static_cast<std::size_t>(current_)];
  if (code == ABS_MT_TRACKING_ID) track(slot, value >= 0);
  if (code == ABS_MT_POSITION_X) slot.x = value;
  if (code == ABS_MT_POSITION_Y) slot.y = value;
}

void FrameAssembler::track(Slot& slot, bool down) {
  if (down && slot.wasDown) slot.replaced = true;
  slot.down = down;
}

void FrameAssembler::report(std::chrono::microseconds time) {
  const bool anyReplaced =
      std::any_of(slots_.begin(), slots_.end(), [](const Slot& slot) { return slot.replaced && slot.down; });
  if (anyReplaced) emit(time, false);
  emit(time, true);
  for (auto& slot : slots_) {
    slot.wasDown = slot.down;
    slot.replaced = false;
  }
}

void FrameAssembler::emit(std::chrono::microseconds time, bool withReplaced) {
  RawFrame frame;
  frame.time = time;
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const auto& slot = slots_[i];
    if (!slot.down || (slot.replaced && !withReplaced)) continue;
    frame.contacts[frame.count++] = {static_cast<std::int32_t>(i), scaledToLogical(slot.x, rangeX_),
                                     scaledToLogical(slot.y, rangeY_)};
  }
  sink_(frame);
}

}  // namespace touchpanel
