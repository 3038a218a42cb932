#pragma once

#include <functional>

#include "driver/Point.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// The last stage: remembers the last frame and outputs changes only.
class PointerOutput {
 public:
  explicit PointerOutput(std::function<void(const OutputFrame&)> sink) : sink_(std::move(sink)) {}

  void moveTo(Point point) { emit(pointer(point, last_.left, last_.right)); }
  void pressLeft(Point point) { emit(pointer(point, true, false)); }
  void pressRight(Point point) { emit(pointer(point, false, true)); }
  void releaseAt(Point point) { emit(pointer(point, false, false)); }
  /// The contacts of a multi-touch frame that are down now; the pointer stays where it is.
  void contacts(const RawFrame& frame);
  /// Lets go of every button and contact, without moving anything.
  void releaseAll();

 private:
  static OutputFrame pointer(Point point, bool left, bool right) {
    OutputFrame frame;
    frame.hasPosition = true;
    frame.x = point.x;
    frame.y = point.y;
    frame.left = left;
    frame.right = right;
    return frame;
  }
  void emit(const OutputFrame& frame);

  std::function<void(const OutputFrame&)> sink_;
  OutputFrame last_;
};

}  // namespace touchpanel::driver
