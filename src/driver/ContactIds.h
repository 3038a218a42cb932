#pragma once

#include <cstdint>

#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// A set of contact ids, a bit each.
using ContactIds = std::uint32_t;

inline ContactIds idOf(const Contact& contact) { return ContactIds{1} << contact.id; }

inline ContactIds idsOf(const RawFrame& frame) {
  ContactIds ids = 0;
  for (std::size_t i = 0; i < frame.count; ++i) ids |= idOf(frame.contacts[i]);
  return ids;
}

}  // namespace touchpanel::driver
