#include "discovery/DeviceList.h"

#include <algorithm>
#include <cstddef>

#include "discovery/DriverChannel.h"

namespace touchpanel {

bool CheckDevice(const DeviceListArray& list, std::uint32_t locationId) {
  return std::any_of(list.begin(), list.end(), [&](const DeviceEntry& entry) {
    return static_cast<std::uint32_t>(entry->integer(entry_key::kLocationID)) == locationId;
  });
}

void RemoveDeviceFromArray(DeviceListOwner& owner, Registry& registry, Application& application) {
  DriverChannel driver(registry);
  auto& list = owner.deviceListArray();
  // The index advances after a removal too: a device that comes and goes at once is tested only after its
  // driver instance had the time to follow.
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (driver.probeCalibration(registryObjectOf(*list[i], entry_key::kHandle))) continue;
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(i));
    owner.reloadDeviceTable();
    if (!list.empty()) owner.shouldSelectRow(0);
  }
  if (list.empty()) application.exit(0);
}

}  // namespace touchpanel
