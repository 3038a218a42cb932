#include "driver/SinglePointer.h"

#include <algorithm>

namespace touchpanel::driver {

SinglePointer::SinglePointer(PointerOutput& output)
    : output_(output), clickOnTouch_(output), clickOnRelease_(output), dragAndHold_(output) {
  choose();
}

void SinglePointer::configure(const TouchSettings& settings) {
  settings_ = settings;
  choose();
}

void SinglePointer::setPlain(bool plain) {
  plain_ = plain;
  choose();
}

void SinglePointer::choose() {
  const auto mode = plain_ ? kDragAndHold : settings_.mode;
  mode_ = mode == kClickOnTouch     ? static_cast<TouchMode*>(&clickOnTouch_)
          : mode == kClickOnRelease ? static_cast<TouchMode*>(&clickOnRelease_)
                                    : &dragAndHold_;
  dragAndHold_.configure(settings_.enableRightClick && !plain_,
                         std::chrono::milliseconds(settings_.rightClickTime),
                         logicalFromArea(settings_.rightClickArea));
}

void SinglePointer::reset() {
  finger_.reset();
  doubleTap_.reset();
  mode_->reset();
}

void SinglePointer::process(const RawFrame& frame) {
  finger_.follow(frame, [&](PrimaryFinger::Event event, const Contact& contact) {
    handle(event, {contact.x, contact.y}, frame.time);
  });
}

void SinglePointer::handle(PrimaryFinger::Event event, Point point, std::chrono::microseconds now) {
  switch (event) {
    case PrimaryFinger::Event::Down:
      return land(point, now);
    case PrimaryFinger::Event::Move:
      return move(point);
    case PrimaryFinger::Event::Up:
      if (!plain_) doubleTap_.leave(now);
      return mode_->leave();
    case PrimaryFinger::Event::Drop:
      output_.releaseAll();
      doubleTap_.reset();
      return mode_->reset();
  }
}

void SinglePointer::land(Point point, std::chrono::microseconds now) {
  if (plain_) return mode_->land(point, now);
  const auto range = logicalFromArea(settings_.clickRange);
  const auto repeated = doubleTap_.land(point, now);
  const auto held = repeated ? std::max(range, doubleTap_.area()) : range;
  mode_->land(clickRange_.land(point, repeated.value_or(point), held), now);
}

void SinglePointer::move(Point point) {
  if (plain_) return mode_->move(point);
  doubleTap_.move(point);
  mode_->move(clickRange_.move(point));
}

}  // namespace touchpanel::driver
