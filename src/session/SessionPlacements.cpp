#include "session/SessionPlacements.h"

#include "contract/DriverProperties.h"
#include "contract/MonitorChoice.h"
#include "contract/MonitorPlacement.h"
#include "contract/TouchDeviceName.h"

namespace touchpanel {

void SessionPlacements::renew() {
  isRefused_ = false;
  told_.clear();
  desktop_ = monitors_.desktop();
  follow();
}

void SessionPlacements::follow() {
  if (desktop_.monitors.empty()) return;
  for (const auto driver : registry_.instancesOf(class_name::kTouchDriver)) {
    if (isRefused_) return;
    follow(driver);
  }
}

void SessionPlacements::follow(RegistryObject driver) {
  const auto properties = registry_.properties(driver);
  const auto* published = properties ? properties->dictionary(property::kMonitor) : nullptr;
  if (published == nullptr) return;
  const auto identity = published->text(monitor_key::kIdentity);
  auto message = placementMessage(desktop_, identity);
  if (const auto told = told_.find(driver); told == told_.end() || told->second != message) {
    const Status status = place(registry_, driver, *published, desktop_);
    isRefused_ = status == kErrorNotPermitted;
    if (status != kSuccess) return;
    told_.insert_or_assign(driver, std::move(message));
  }
  assign(driver, *properties, *monitorFor(desktop_, identity));
}

void SessionPlacements::assign(RegistryObject driver, const Dictionary& properties, const Monitor& monitor) {
  const auto* settings = properties.dictionary(property::kConfigration);
  if (!desktop_.placesTouches || settings == nullptr ||
      settings->integer(configration_key::kMode) != kMultiTouch)
    return;
  for (const auto child : registry_.childrenOf(driver)) {
    const auto held = registry_.properties(child);
    if (held && held->contains(property::kLocationID))
      outputs_.assign(touchDeviceName(static_cast<std::uint32_t>(held->longInteger(property::kLocationID))),
                      monitor);
  }
}

}  // namespace touchpanel
