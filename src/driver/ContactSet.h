#pragma once

#include <array>

#include "driver/ContactIds.h"
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
    for (std::size_t i = 0; i < frame.count; ++i) {
      auto& contact = frame.contacts[i];
      auto& state = states_[static_cast<std::size_t>(contact.id)];
      if (down_ & idOf(contact))
        move(state, contact);
      else
        land(state, contact);
    }
    down_ = idsOf(frame);
  }
  void reset() { down_ = 0; }

 private:
  std::array<State, kMaximumContacts> states_{};
  ContactIds down_ = 0;
};

}  // namespace touchpanel::driver
