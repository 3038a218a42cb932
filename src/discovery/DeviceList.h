#pragma once

#include <cstdint>

#include "discovery/DeviceEntry.h"
#include "discovery/DeviceListOwner.h"
#include "platform/Application.h"
#include "platform/Registry.h"

namespace touchpanel {

/// Whether an entry of the list is at `locationId`.
bool CheckDevice(const DeviceListArray& list, std::uint32_t locationId);

/// Drops the entries whose driver instance no longer takes a property write. The entry behind a dropped one
/// moves into its place and is not tested before the next removal. While entries remain the first becomes
/// the selection; an empty list ends the application with status 0.
void RemoveDeviceFromArray(DeviceListOwner& owner, Registry& registry, Application& application);

}  // namespace touchpanel
