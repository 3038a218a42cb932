#pragma once

#include <cstdint>

#include "driver/TouchMode.h"

namespace touchpanel::driver {

/// Mode 2: the left button follows the finger, and a finger that holds still makes a right click. The left
/// press waits until it is clear that no right click comes of the touch, so neither ever disturbs the other.
///
///     state    | land          | move within area | move beyond it          | leave             | time over
///     ---------+---------------+------------------+-------------------------+-------------------+------------
///     idle     | hold on: move |                  |                         |                   |
///              |  -> waiting   |                  |                         |                   |
///              | off: press    |                  |                         |                   |
///              |  -> dragging  |                  |                         |                   |
///     waiting  |               | nothing          | press at the landing    | press and release | right click
///              |               |                  | point, move -> dragging | there -> idle     |  -> spent
///     dragging |               | move             | move                    | release -> idle   |
///     spent    |               | nothing          | nothing                 | -> idle           |
class DragAndHold final : public TouchMode {
 public:
  explicit DragAndHold(PointerOutput& output) : output_(output) {}
  /// `area` is in logical units. Without a hold each touch is a plain drag.
  void configure(bool hold, std::chrono::milliseconds time, std::int32_t area);

  void land(Point point, std::chrono::microseconds now) override;
  void move(Point point) override;
  void leave() override;
  void reset() override { state_ = State::Idle; }
  std::optional<std::chrono::microseconds> deadline() const override;
  void elapsed() override;

 private:
  enum class State { Idle, Waiting, Dragging, Spent };
  void drag(Point point);

  PointerOutput& output_;
  bool hold_ = false;
  std::chrono::milliseconds time_{0};
  std::int32_t area_ = 0;
  State state_ = State::Idle;
  Point landing_;
  Point at_;
  std::chrono::microseconds due_{0};
};

}  // namespace touchpanel::driver
