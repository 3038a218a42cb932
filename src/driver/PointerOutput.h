#pragma once

#include <functional>

#include "contract/MonitorPlacement.h"
#include "driver/Point.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// The last stage: takes places on the glass to where its monitor lies on the desktop, remembers the last
/// frame and outputs changes only.
class PointerOutput {
 public:
  explicit PointerOutput(std::function<void(const OutputFrame&)> sink) : sink_(std::move(sink)) {}

  /// Where the glass lies for a pointer and for contacts. Returns whether that is anywhere new.
  bool place(const DesktopPart& pointer, const DesktopPart& touch) {
    const bool isNew = pointer != pointerPart_ || touch != touchPart_;
    pointerPart_ = pointer;
    touchPart_ = touch;
    return isNew;
  }

  void moveTo(Point point) { send(pointer(point, last_.left, last_.right)); }
  void pressLeft(Point point) { send(pointer(point, true, false)); }
  void pressRight(Point point) { send(pointer(point, false, true)); }
  void releaseAt(Point point) { send(pointer(point, false, false)); }
  /// The contacts of a multi-touch frame that are down now; the pointer stays where it is.
  void contacts(const RawFrame& frame);
  /// Lets go of every button and contact, without moving anything.
  void releaseAll();

 private:
  OutputFrame pointer(Point point, bool left, bool right) const;
  void send(const OutputFrame& frame);

  std::function<void(const OutputFrame&)> sink_;
  DesktopPart pointerPart_;
  DesktopPart touchPart_;
  OutputFrame last_;
};

}  // namespace touchpanel::driver
