#include "driver/DragAndHold.h"

#include <algorithm>

namespace touchpanel::driver {

namespace {
/// A shorter hold could not be distinguished from a tap.
constexpr std::chrono::milliseconds kShortestHold{100};
}  // namespace

void DragAndHold::configure(bool hold, std::chrono::milliseconds time, std::int32_t area) {
  hold_ = hold;
  time_ = std::max(time, kShortestHold);
  area_ = area;
}

void DragAndHold::land(Point point, std::chrono::microseconds now) {
  landing_ = at_ = point;
  if (!hold_) {
    state_ = State::Dragging;
    output_.pressLeft(point);
    return;
  }
  state_ = State::Waiting;
  due_ = now + time_;
  output_.moveTo(point);
}

void DragAndHold::move(Point point) {
  if (state_ == State::Waiting && !isWithin(point, landing_, area_)) {
    output_.pressLeft(landing_);
    state_ = State::Dragging;
  }
  if (state_ == State::Dragging) drag(point);
}

void DragAndHold::drag(Point point) {
  at_ = point;
  output_.moveTo(point);
}

void DragAndHold::leave() {
  if (state_ == State::Waiting) output_.pressLeft(landing_);
  if (state_ == State::Waiting || state_ == State::Dragging) output_.releaseAt(at_);
  state_ = State::Idle;
}

std::optional<std::chrono::microseconds> DragAndHold::deadline() const {
  if (state_ != State::Waiting) return std::nullopt;
  return due_;
}

void DragAndHold::elapsed() {
  if (state_ != State::Waiting) return;
  state_ = State::Spent;
  output_.pressRight(landing_);
  output_.releaseAt(landing_);
}

}  // namespace touchpanel::driver
