#include "providers/linux/input/OutputEvents.h"

namespace touchpanel {

namespace {
constexpr std::int32_t kLastTrackingId = 0xFFFF;
}

std::span<const input_event> PointerEvents::next(const OutputFrame& frame) {
  batch_.clear();
  const bool press = (frame.left && !left_) || (frame.right && !right_);
  if (frame.hasPosition) {
    axis(ABS_X, frame.x, x_, press);
    axis(ABS_Y, frame.y, y_, press);
  }
  if (frame.left != left_) batch_.add(EV_KEY, BTN_LEFT, left_ = frame.left);
  if (frame.right != right_) batch_.add(EV_KEY, BTN_RIGHT, right_ = frame.right);
  return batch_.finish();
}

void PointerEvents::axis(int code, std::int32_t value, std::int32_t& last, bool press) {
  if (value == last && !press) return;
  if (value == last) batch_.add(EV_ABS, code, value ^ 1);
  batch_.add(EV_ABS, code, last = value);
}

std::span<const input_event> ContactEvents::next(const OutputFrame& frame) {
  batch_.clear();
  std::uint32_t down = 0;
  for (std::size_t i = 0; i < frame.count; ++i) down |= 1U << frame.contacts[i].id;
  for (std::size_t id = 0; id < slots_.size(); ++id)
    if (slots_[id].down && !(down & (1U << id))) leave(id);
  for (std::size_t i = 0; i < frame.count; ++i) place(frame.contacts[i]);
  singleTouch(frame);
  return batch_.finish();
}

void ContactEvents::leave(std::size_t id) {
  slots_[id] = {};
  batch_.add(EV_ABS, ABS_MT_SLOT, static_cast<std::int32_t>(id));
  batch_.add(EV_ABS, ABS_MT_TRACKING_ID, -1);
}

void ContactEvents::place(const Contact& contact) {
  auto& slot = slots_[static_cast<std::size_t>(contact.id)];
  if (slot.down && slot.x == contact.x && slot.y == contact.y) return;
  batch_.add(EV_ABS, ABS_MT_SLOT, contact.id);
  if (!slot.down) {
    batch_.add(EV_ABS, ABS_MT_TRACKING_ID, trackingId_);
    trackingId_ = trackingId_ == kLastTrackingId ? 0 : trackingId_ + 1;
    slot.down = true;
  }
  if (slot.x != contact.x) batch_.add(EV_ABS, ABS_MT_POSITION_X, slot.x = contact.x);
  if (slot.y != contact.y) batch_.add(EV_ABS, ABS_MT_POSITION_Y, slot.y = contact.y);
}

void ContactEvents::singleTouch(const OutputFrame& frame) {
  const bool touching = frame.count > 0;
  if (touching != touching_) batch_.add(EV_KEY, BTN_TOUCH, touching_ = touching);
  if (!touching) return;
  batch_.add(EV_ABS, ABS_X, frame.contacts[0].x);
  batch_.add(EV_ABS, ABS_Y, frame.contacts[0].y);
}

}  // namespace touchpanel
