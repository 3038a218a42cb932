#include "contract/MonitorChoice.h"

#include <algorithm>
#include <string>

#include "contract/MonitorPlacement.h"

namespace touchpanel {
namespace {

bool isCalled(const Monitor& monitor, std::string_view identity) {
  return identity == monitor.identity || identity == unitOf(monitor) || identity == monitor.connector ||
         identity == unitOf(monitor) + ' ' + monitor.connector;
}

/// Pixel `at` of `length` in 0..32768, to the nearest.
std::int32_t unitsOf(std::int32_t at, std::int32_t length) {
  constexpr std::int64_t kUnits = kLogicalMaximum + 1;
  const auto units = (std::int64_t{at} * kUnits * 2 + length) / (std::int64_t{length} * 2);
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(units, 0, kUnits));
}

DesktopPart partOf(const Desktop& desktop, const Monitor& monitor) {
  if (desktop.width <= 0 || desktop.height <= 0) return {};
  const auto& [x, y, width, height] = monitor.area;
  const DesktopPart part{unitsOf(x, desktop.width), unitsOf(y, desktop.height),
                         unitsOf(x + width, desktop.width) - 1, unitsOf(y + height, desktop.height) - 1,
                         monitor.turn};
  return part.minX < part.maxX && part.minY < part.maxY ? part : DesktopPart{};
}

}  // namespace

const Monitor* monitorFor(const Desktop& desktop, std::string_view identity) {
  const auto& all = desktop.monitors;
  auto found = std::ranges::find(all, identity, &Monitor::identity);
  if (found == all.end())
    found = std::ranges::find_if(all, [&](const Monitor& monitor) { return isCalled(monitor, identity); });
  if (found == all.end()) found = std::ranges::find(all, true, &Monitor::isPrimary);
  if (found == all.end()) found = all.begin();
  return found == all.end() ? nullptr : &*found;
}

Dictionary placementMessage(const Desktop& desktop, std::string_view identity) {
  const auto* monitor = monitorFor(desktop, identity);
  const auto whole = [&](bool isPlaced) { return isPlaced || monitor == nullptr; };
  const auto pointer = whole(desktop.placesPointers) ? DesktopPart{} : partOf(desktop, *monitor);
  const auto touch = whole(desktop.placesTouches) ? DesktopPart{} : partOf(desktop, *monitor);
  const auto size = [&](std::int32_t Monitor::*millimetres) {
    return monitor == nullptr ? 0 : std::clamp(monitor->*millimetres, 0, monitor_limit::kMaximumSizeMm);
  };
  return {{monitor_key::kMinX, pointer.minX},
          {monitor_key::kMinY, pointer.minY},
          {monitor_key::kMaxX, pointer.maxX},
          {monitor_key::kMaxY, pointer.maxY},
          {monitor_key::kTurn, pointer.turn},
          {monitor_key::kTouchMinX, touch.minX},
          {monitor_key::kTouchMinY, touch.minY},
          {monitor_key::kTouchMaxX, touch.maxX},
          {monitor_key::kTouchMaxY, touch.maxY},
          {monitor_key::kTouchTurn, touch.turn},
          {monitor_key::kWidthMm, size(&Monitor::widthMm)},
          {monitor_key::kHeightMm, size(&Monitor::heightMm)}};
}

std::optional<Dictionary> monitorOf(Registry& registry, RegistryObject driver) {
  const auto properties = registry.properties(driver);
  const auto* monitor = properties ? properties->dictionary(property::kMonitor) : nullptr;
  return monitor == nullptr ? std::nullopt : std::optional(*monitor);
}

Status place(Registry& registry, RegistryObject driver, const Dictionary& published, const Desktop& desktop) {
  Dictionary differing;
  for (const auto& [key, value] : placementMessage(desktop, published.text(monitor_key::kIdentity)))
    if (published.integer(key) != value.integer()) differing.set(key, value);
  return differing.empty() ? kSuccess : registry.setProperty(driver, property::kMonitor, differing);
}

}  // namespace touchpanel
