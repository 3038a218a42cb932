#include "providers/linux/input/NodeReports.h"

#include <array>

#include <libevdev/libevdev.h>

namespace touchpanel {

namespace {
bool hasKey(const libevdev& device, unsigned code) {
  return libevdev_has_event_code(&device, EV_KEY, code) != 0;
}

bool hasAxis(const libevdev& device, unsigned code) {
  return libevdev_has_event_code(&device, EV_ABS, code) != 0;
}

AxisRange rangeOf(const libevdev& device, unsigned axis) {
  return {libevdev_get_abs_minimum(&device, axis), libevdev_get_abs_maximum(&device, axis)};
}

bool hasPlane(const libevdev& device, unsigned x, unsigned y) {
  return hasAxis(device, x) && hasAxis(device, y) && hasExtent(rangeOf(device, x)) &&
         hasExtent(rangeOf(device, y));
}

bool hasPen(const libevdev& device) {
  for (const unsigned code : {BTN_TOOL_PEN, BTN_TOOL_RUBBER, BTN_STYLUS, BTN_STYLUS2})
    if (hasKey(device, code)) return true;
  return false;
}

InputReports ofOneFinger(const libevdev& device) {
  if (hasKey(device, BTN_TOUCH)) return hasPen(device) ? InputReports::Pen : InputReports::SingleTouch;
  return hasKey(device, BTN_LEFT) ? InputReports::AbsoluteMouse : InputReports::Nothing;
}
}  // namespace

NodeReports reportsOf(const libevdev& device) {
  NodeReports node;
  node.isPointing = hasKey(device, BTN_LEFT) &&
                    (libevdev_has_event_code(&device, EV_REL, REL_X) != 0 || hasAxis(device, ABS_X));
  const bool manyFingers = hasPlane(device, ABS_MT_POSITION_X, ABS_MT_POSITION_Y);
  if (manyFingers)
    node.touches = hasAxis(device, ABS_MT_SLOT) ? InputReports::MultiTouchB : InputReports::MultiTouchA;
  else if (hasPlane(device, ABS_X, ABS_Y))
    node.touches = ofOneFinger(device);
  if (node.touches == InputReports::Nothing) return node;
  node.isPointing = true;
  node.x = rangeOf(device, manyFingers ? ABS_MT_POSITION_X : ABS_X);
  node.y = rangeOf(device, manyFingers ? ABS_MT_POSITION_Y : ABS_Y);
  return node;
}

}  // namespace touchpanel
