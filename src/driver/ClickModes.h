#pragma once

#include "driver/TouchMode.h"

namespace touchpanel::driver {

/// Mode 0: a click where the finger lands; afterwards the pointer follows the finger with no button held.
class ClickOnTouch final : public TouchMode {
 public:
  explicit ClickOnTouch(PointerOutput& output) : output_(output) {}
  void land(Point point, std::chrono::microseconds) override {
    output_.pressLeft(point);
    output_.releaseAt(point);
  }
  void move(Point point) override { output_.moveTo(point); }
  void leave() override {}
  void reset() override {}

 private:
  PointerOutput& output_;
};

/// Mode 1: the pointer follows the finger; a click where it leaves.
class ClickOnRelease final : public TouchMode {
 public:
  explicit ClickOnRelease(PointerOutput& output) : output_(output) {}
  void land(Point point, std::chrono::microseconds) override { move(point); }
  void move(Point point) override {
    at_ = point;
    output_.moveTo(point);
  }
  void leave() override {
    output_.pressLeft(at_);
    output_.releaseAt(at_);
  }
  void reset() override {}

 private:
  PointerOutput& output_;
  Point at_;
};

}  // namespace touchpanel::driver
