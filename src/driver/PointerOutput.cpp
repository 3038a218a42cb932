#include "driver/PointerOutput.h"

namespace touchpanel::driver {

namespace {
std::int32_t within(std::int32_t minimum, std::int32_t maximum, std::int32_t value) {
  return minimum + (value * (maximum - minimum) + kLogicalMaximum / 2) / kLogicalMaximum;
}

/// To the nearest unit, halves up. The whole desktop without a turn changes nothing.
Point onDesktop(Point point, const DesktopPart& part) {
  const auto [x, y] = inTurnedPicture(point.x, point.y, kLogicalMaximum, part.turn);
  return {within(part.minX, part.maxX, x), within(part.minY, part.maxY, y)};
}
}  // namespace

OutputFrame PointerOutput::pointer(Point point, bool left, bool right) const {
  const auto [x, y] = onDesktop(point, pointerPart_);
  OutputFrame frame;
  frame.hasPosition = true;
  frame.x = x;
  frame.y = y;
  frame.left = left;
  frame.right = right;
  return frame;
}

void PointerOutput::contacts(const RawFrame& frame) {
  if (frame.count == 0 && last_.count == 0) return;
  OutputFrame out;
  out.count = frame.count;
  for (std::size_t i = 0; i < frame.count; ++i) {
    const auto& contact = frame.contacts[i];
    const auto [x, y] = onDesktop({contact.x, contact.y}, touchPart_);
    out.contacts[i] = {contact.id, x, y};
  }
  send(out);
}

void PointerOutput::releaseAll() {
  if (last_.left || last_.right || last_.count > 0) send({});
}

void PointerOutput::send(const OutputFrame& frame) {
  if (frame == last_) return;
  last_ = frame;
  sink_(frame);
}

}  // namespace touchpanel::driver
