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

FrameAssembler::FrameAssembler(InputReports reports, AxisRange x, AxisRange y, Sink sink)
    : reports_(reports), rangeX_(x), rangeY_(y), sink_(std::move(sink)) {}

void FrameAssembler::event(std::uint16_t type, std::uint16_t code, std::int32_t value,
                           std::chrono::microseconds time) {
  if (type == EV_SYN && code == SYN_REPORT) return report(time);
  switch (reports_) {
    case InputReports::Nothing:
      return;
    case InputReports::MultiTouchB:
      if (type == EV_ABS) slotted(code, value);
      return;
    case InputReports::MultiTouchA:
      return listed(type, code, value);
    case InputReports::Pen:
    case InputReports::AbsoluteMouse:
    case InputReports::SingleTouch:
      return oneFinger(type, code, value);
  }
}

void FrameAssembler::oneFinger(std::uint16_t type, std::uint16_t code, std::int32_t value) {
  auto& finger = slots_[0];
  if (type == EV_ABS && code == ABS_X) finger.x = scaledToLogical(value, rangeX_);
  if (type == EV_ABS && code == ABS_Y) finger.y = scaledToLogical(value, rangeY_);
  const auto touch = reports_ == InputReports::AbsoluteMouse ? BTN_LEFT : BTN_TOUCH;
  if (type != EV_KEY || code != touch) return;
  // Let go and pressed within one report, it is another touch.
  if (value == 0)
    finger.id = -1;
  else if (!finger.isDown())
    finger.id = finger.idBefore == 0 ? 1 : 0;
}

void FrameAssembler::slotted(std::uint16_t code, std::int32_t value) {
  if (code == ABS_MT_SLOT) current_ = value;
  if (current_ < 0 || current_ >= static_cast<std::int32_t>(slots_.size())) return;
  auto& slot = slots_[static_cast<std::size_t>(current_)];
  if (code == ABS_MT_TRACKING_ID) slot.id = value;
  if (code == ABS_MT_POSITION_X) slot.x = scaledToLogical(value, rangeX_);
  if (code == ABS_MT_POSITION_Y) slot.y = scaledToLogical(value, rangeY_);
}

void FrameAssembler::listed(std::uint16_t type, std::uint16_t code, std::int32_t value) {
  if (type == EV_ABS && code == ABS_MT_TRACKING_ID) next_.id = value;
  if (type == EV_ABS && code == ABS_MT_POSITION_X) {
    next_.x = scaledToLogical(value, rangeX_);
    hasNext_ = true;
  }
  if (type == EV_ABS && code == ABS_MT_POSITION_Y) {
    next_.y = scaledToLogical(value, rangeY_);
    hasNext_ = true;
  }
  if (type == EV_SYN && code == SYN_MT_REPORT) endListed();
}

void FrameAssembler::endListed() {
  if (std::exchange(hasNext_, false)) matching_.add(next_);
  next_.id = -1;
}

void FrameAssembler::report(std::chrono::microseconds time) {
  if (reports_ == InputReports::MultiTouchA) {
    endListed();
    matching_.assign(slots_);
  }
  if (std::ranges::any_of(slots_, &ContactSlot::isReplaced)) emit(time, false);
  emit(time, true);
  for (auto& slot : slots_) slot.idBefore = slot.id;
}

void FrameAssembler::emit(std::chrono::microseconds time, bool withReplaced) {
  RawFrame frame;
  frame.time = time;
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    const auto& slot = slots_[i];
    if (!slot.isDown() || (slot.isReplaced() && !withReplaced)) continue;
    frame.contacts[frame.count++] = {static_cast<std::int32_t>(i), slot.x, slot.y};
  }
  sink_(frame);
}

}  // namespace touchpanel
