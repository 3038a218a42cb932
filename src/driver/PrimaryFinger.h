#pragma once

#include <optional>

#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// Reduces all fingers to the one that leads a single pointer: the first that lands on an empty glass. It
/// leads until it leaves; fingers that stay behind never take over, so the pointer cannot jump to them.
///
///     state    | first finger lands | it moves | it leaves, none left | it leaves, others stay | last one
///     leaves
///     ---------+--------------------+----------+----------------------+------------------------+----------------
///     empty    | -> leading, Down   |          |                      |                        |
///     leading  |                    | Move     | -> empty, Up         | -> leftovers, Up       |
///     leftovers| None               | None     |                      |                        | -> empty,
///     None
class PrimaryFinger {
 public:
  enum class Event { None, Down, Move, Up };
  struct Step {
    Event event = Event::None;
    Contact contact;  ///< where the finger is, or for Up where it last was
  };

  Step follow(const RawFrame& frame) {
    if (leading_) {
      for (std::size_t i = 0; i < frame.count; ++i)
        if (frame.contacts[i].id == finger_.id) {
          finger_ = frame.contacts[i];
          return {Event::Move, finger_};
        }
      leading_ = false;
      leftovers_ = frame.count > 0;
      return {Event::Up, finger_};
    }
    if (frame.count == 0) leftovers_ = false;
    if (frame.count == 0 || leftovers_) return {};
    leading_ = true;
    finger_ = frame.contacts[0];
    return {Event::Down, finger_};
  }
  void reset() { leading_ = leftovers_ = false; }

 private:
  bool leading_ = false;
  bool leftovers_ = false;
  Contact finger_;
};

}  // namespace touchpanel::driver
