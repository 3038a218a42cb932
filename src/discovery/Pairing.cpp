#include "discovery/Pairing.h"

#include <optional>

#include "contract/DriverProperties.h"

namespace touchpanel {

namespace {

constexpr int kAnyFlag = 1;

std::optional<std::uint32_t> locationOf(Registry& registry, RegistryObject pointingDevice) {
  if (pointingDevice == 0) return std::nullopt;
  const auto properties = registry.properties(pointingDevice);
  const Value* location = properties ? properties->find(property::kLocationID) : nullptr;
  if (location == nullptr || !location->isNumber()) return std::nullopt;
  return static_cast<std::uint32_t>(location->longInteger());
}

}  // namespace

void scan(Registry& registry, RegistryObject parent, int flag, RegistryObject& out,
          std::string_view className) {
  for (const auto child : registry.childrenOf(parent)) {
    if (registry.conformsTo(child, className)) {
      out = child;
      return;
    }
    scan(registry, child, flag, out, className);
  }
}

RegistryObject compareID(Registry& registry, std::span<const RegistryObject> instances,
                         std::uint32_t locationId, RegistryObject& out) {
  if (locationId == 0) return 0;
  std::optional<std::uint32_t> lastLocation;
  for (const auto instance : instances) {
    scan(registry, instance, kAnyFlag, out, class_name::kPointingDevice);
    if (const auto location = locationOf(registry, out)) lastLocation = location;
    if (lastLocation == locationId) return instance;
  }
  return 0;
}

}  // namespace touchpanel
