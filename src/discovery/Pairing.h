#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/Registry.h"

namespace touchpanel {

/// Searches everything below `parent`, depth first and in registry order, for an object that conforms to
/// `className`. Such a child goes into `out` and ends the walk at its level; after any other child and what
/// is below it the walk goes on with the next, so that a later branch overwrites what an earlier one put into
/// `out`. When nothing is found `out` keeps its value. `flag` has no effect.
void scan(Registry& registry, RegistryObject parent, int flag, RegistryObject& out,
          std::string_view className);

/// The first of `instances` whose pointing device has `locationId` (low 32 bits) as its location, or 0 when
/// there is none; that pointing device is left in `out`. An instance without a location counts with the
/// location before it. Location 0 is no location, and none serves it.
RegistryObject compareID(Registry& registry, std::span<const RegistryObject> instances,
                         std::uint32_t locationId, RegistryObject& out);

}  // namespace touchpanel
