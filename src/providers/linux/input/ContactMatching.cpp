#include "providers/linux/input/ContactMatching.h"

#include <algorithm>
#include <limits>
#include <span>

#include "contract/DriverProperties.h"

namespace touchpanel {

namespace {
/// A hand that crosses a glass of 1.2 m at 3 m/s moves by a twelfth of it in a frame of a slow touchscreen.
constexpr std::int64_t kReach = (kLogicalMaximum + 1) / 8;

std::int64_t squaredDistance(const ListedContact& contact, const ContactSlot& slot) {
  const std::int64_t x = contact.x - slot.x;
  const std::int64_t y = contact.y - slot.y;
  return x * x + y * y;
}
}  // namespace

void ContactMatching::add(const ListedContact& contact) {
  if (count_ < listed_.size()) listed_[count_++] = {contact, false};
}

void ContactMatching::assign(ContactSlots& slots) {
  taken_ = {};
  placeById(slots);
  while (placeNearest(slots)) {
  }
  for (std::size_t slot = 0; slot < slots.size(); ++slot)
    if (!taken_[slot]) slots[slot].id = -1;
  for (auto& listed : std::span(listed_).first(count_))
    if (!listed.isPlaced) land(listed, slots);
  count_ = 0;
}

void ContactMatching::place(Listed& listed, ContactSlots& slots, std::size_t slot) {
  slots[slot].x = listed.contact.x;
  slots[slot].y = listed.contact.y;
  taken_[slot] = listed.isPlaced = true;
}

void ContactMatching::placeById(ContactSlots& slots) {
  for (auto& listed : std::span(listed_).first(count_))
    for (std::size_t slot = 0; slot < slots.size() && !listed.isPlaced && listed.contact.id >= 0; ++slot)
      if (!taken_[slot] && slots[slot].id == listed.contact.id) place(listed, slots, slot);
}

bool ContactMatching::placeNearest(ContactSlots& slots) {
  auto least = kReach * kReach + 1;
  Listed* nearest = nullptr;
  std::size_t nearestSlot = 0;
  for (auto& listed : std::span(listed_).first(count_))
    for (std::size_t slot = 0; slot < slots.size() && !listed.isPlaced && listed.contact.id < 0; ++slot) {
      const auto distance = squaredDistance(listed.contact, slots[slot]);
      if (taken_[slot] || !slots[slot].isDown() || distance >= least) continue;
      least = distance;
      nearest = &listed;
      nearestSlot = slot;
    }
  if (nearest) place(*nearest, slots, nearestSlot);
  return nearest != nullptr;
}

/// In a place that was empty before, if there is one.
void ContactMatching::land(Listed& listed, ContactSlots& slots) {
  std::size_t chosen = slots.size();
  for (std::size_t slot = 0; slot < slots.size(); ++slot)
    if (!taken_[slot] &&
        (chosen == slots.size() || (slots[slot].idBefore < 0 && slots[chosen].idBefore >= 0)))
      chosen = slot;
  if (chosen == slots.size()) return;
  place(listed, slots, chosen);
  slots[chosen].id = listed.contact.id;
  if (listed.contact.id >= 0) return;
  slots[chosen].id = nextId_;
  nextId_ = nextId_ == std::numeric_limits<std::int32_t>::max() ? 0 : nextId_ + 1;
}

}  // namespace touchpanel
