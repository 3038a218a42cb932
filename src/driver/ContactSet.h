#pragma once

#include <array>
#include <cstdint>

#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// One `State` per contact id, with the knowledge of which ids were down in the frame before.
template <typename State>
class ContactSet {
 public:
  /// Calls `land(state, contact)` for each contact that was not down before, `move(state, contact)` for each
  /// other one. Both may change the contact.
  template <typename Land, typename Move>
  void follow(RawFrame& frame, Land land, Move move) {
    std::uint32_t down = 0;
    for (std::size_t i = 0; i < frame.count; ++i) {
      auto& contact = frame.contacts[i];
      const auto id = static_cast<std::size_t>(contact.id);
      down |= 1U << id;
      if (down_ & (1U << id))
        move(states_[id], contact);
      else
        land(states_[id], contact);
    }
    down_ = down;
  }
  void reset() { down_ = 0; }

 private:
  std::array<State, kMaximumContacts> states_{};
  std::uint32_t down_ = 0;
};

}  // namespace touchpanel::driver
