#include "app/TouchscreenMonitors.h"

#include "contract/MonitorPlacement.h"

namespace touchpanel {

TouchscreenMonitors::Place TouchscreenMonitors::place(const Dictionary& entry) {
  const auto driver = registryObjectOf(entry, entry_key::kHandle);
  const auto published = monitorOf(registry_, driver);
  const auto desktop = monitors_.desktop();
  const auto* monitor = monitorFor(desktop, published ? published->text(monitor_key::kIdentity) : "");
  if (monitor == nullptr) return {};
  const bool isTold = published && touchpanel::place(registry_, driver, *published, desktop) == kSuccess;
  return {monitor->connector, isTold || desktop.placesPointers ? monitor->turn : 0};
}

}  // namespace touchpanel
