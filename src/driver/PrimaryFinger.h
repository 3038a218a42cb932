#pragma once

#include <chrono>
#include <cstdint>

#include "driver/ContactIds.h"
#include "driver/Point.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// Reduces all fingers to the one that leads a single pointer: one that lands while none leads. It leads until
/// it leaves; fingers that were there beside it are ignored until they leave, so the pointer cannot jump to
/// them. One that lands in the frame in which the leader leaves was not there beside it, and leads.
///
/// A contact that has not moved for a long time may be dirt on the frame: as soon as another finger lands, that
/// one leads, and the old one is ignored until it leaves.
///
///     state   | a finger lands                        | the leader moves | the leader leaves
///     --------+---------------------------------------+------------------+---------------------------------
///     none    | Down -> leading, others ignored       |                  |
///     leading | ignored; if the leader is still since | Move             | Up -> none, or Up and Down when
///             | kStillness: Drop, Down of the new one |                  | one lands in the same frame
class PrimaryFinger {
 public:
  enum class Event { Down, Move, Up, Drop };
  /// How long, and within how many logical units to each side, a contact must have stayed to count as dirt. No
  /// finger is held as still as that: 2.5 mm on a 24-inch screen.
  static constexpr std::chrono::seconds kStillness{10};
  static constexpr std::int32_t kReach = logicalFromArea(5);

  /// Calls `handle(event, contact)` for what the frame means, in order. `contact` is where the finger is, or for
  /// Up and Drop where it last was.
  template <typename Handle>
  void follow(const RawFrame& frame, Handle handle) {
    const Contact* leader = nullptr;
    const Contact* landed = nullptr;
    for (std::size_t i = 0; i < frame.count; ++i) {
      const auto& contact = frame.contacts[i];
      if (leading_ && contact.id == finger_.id)
        leader = &contact;
      else if (!landed && !(known_ & idOf(contact)))
        landed = &contact;
    }
    known_ = idsOf(frame);
    if (leader) move(*leader, frame.time, handle);
    if (leading_ && (!leader || (landed && isStill(frame.time)))) {
      leading_ = false;
      handle(leader ? Event::Drop : Event::Up, finger_);
    }
    if (!leading_ && landed) land(*landed, frame.time, handle);
  }
  /// Forgets all fingers; those that are there count as landing in the next frame.
  void reset() {
    leading_ = false;
    known_ = 0;
  }

 private:
  bool isStill(std::chrono::microseconds now) const { return now - since_ >= kStillness; }
  void rest(std::chrono::microseconds now) {
    anchor_ = {finger_.x, finger_.y};
    since_ = now;
  }
  template <typename Handle>
  void move(const Contact& contact, std::chrono::microseconds now, Handle& handle) {
    finger_ = contact;
    if (!isWithin({contact.x, contact.y}, anchor_, kReach)) rest(now);
    handle(Event::Move, finger_);
  }
  template <typename Handle>
  void land(const Contact& contact, std::chrono::microseconds now, Handle& handle) {
    leading_ = true;
    finger_ = contact;
    rest(now);
    handle(Event::Down, finger_);
  }

  bool leading_ = false;
  ContactIds known_ = 0;  ///< in the last frame
  Contact finger_;
  Point anchor_;
  std::chrono::microseconds since_{0};
};

}  // namespace touchpanel::driver
