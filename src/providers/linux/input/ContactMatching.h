#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/TouchFrames.h"

namespace touchpanel {

/// A place for one contact: its id, negative while nobody is there, and where it is in logical units.
struct ContactSlot {
  std::int32_t id = -1;
  std::int32_t idBefore = -1;  ///< in the last frame
  std::int32_t x = 0;
  std::int32_t y = 0;

  bool isDown() const { return id >= 0; }
  /// Another contact has come into the place of the one that was there in the last frame.
  bool isReplaced() const { return id >= 0 && idBefore >= 0 && id != idBefore; }
};
using ContactSlots = std::array<ContactSlot, kMaximumContacts>;

/// A contact of a touchscreen that lists its contacts anew in each frame, in any order.
struct ListedContact {
  std::int32_t id = -1;  ///< the touchscreen's own; negative: it gives none
  std::int32_t x = 0;    ///< logical units
  std::int32_t y = 0;
};

/// Gives listed contacts places that last: by their own ids, those without by whom they are next to in the frame
/// before, nearest first. Contacts that are further apart than an eighth of the glass are not the same.
class ContactMatching {
 public:
  /// Contacts beyond kMaximumContacts are left out.
  void add(const ListedContact& contact);
  /// Ends a frame: puts its contacts into `slots`, and nobody into the others.
  void assign(ContactSlots& slots);

 private:
  struct Listed {
    ListedContact contact;
    bool isPlaced = false;
  };
  void place(Listed& listed, ContactSlots& slots, std::size_t slot);
  void placeById(ContactSlots& slots);
  bool placeNearest(ContactSlots& slots);
  void land(Listed& listed, ContactSlots& slots);

  std::array<Listed, kMaximumContacts> listed_{};
  std::size_t count_ = 0;
  std::array<bool, kMaximumContacts> taken_{};
  std::int32_t nextId_ = 0;
};

}  // namespace touchpanel
