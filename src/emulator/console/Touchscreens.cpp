#include "emulator/console/Touchscreens.h"

#include <utility>

namespace touchpanel::emulator {

Touchscreen* Touchscreens::find(const std::string& name) {
  const auto found = all_.find(name);
  return found == all_.end() ? nullptr : found->second.get();
}

Touchscreen& Touchscreens::add(const std::string& name, UsbTouchscreen device) {
  auto& added = all_[name];
  added = std::make_unique<Touchscreen>(Touchscreen{std::move(device), std::nullopt, std::nullopt});
  return *added;
}

void Touchscreens::remove(const std::string& name) {
  if (Touchscreen* known = find(name)) unplug(*known);
  all_.erase(name);
}

PlugResult Touchscreens::plug(Touchscreen& touchscreen) {
  touchscreen.connection.emplace(touchscreen.device);
  PlugResult result = bus_.plug(*touchscreen.connection, touchscreen.port);
  if (result.outcome == PlugResult::Outcome::Plugged) {
    touchscreen.port = result.port;
  } else {
    touchscreen.connection.reset();
  }
  return result;
}

void Touchscreens::unplug(Touchscreen& touchscreen) {
  if (!touchscreen.connection) return;
  bus_.unplug(*touchscreen.connection);
  touchscreen.connection.reset();
  touchscreen.device.powerCycle();
}

void Touchscreens::unplug(const UsbIpConnection& connection) {
  for (const auto& [name, touchscreen] : all_) {
    if (touchscreen->connection && &*touchscreen->connection == &connection) return unplug(*touchscreen);
  }
}

void Touchscreens::settle() {
  for (const auto& [name, touchscreen] : all_) {
    if (touchscreen->device.wantsUnplug()) unplug(*touchscreen);
  }
}

void Touchscreens::deliverReports() {
  for (const auto& [name, touchscreen] : all_) {
    if (touchscreen->connection) touchscreen->connection->deliverReports();
  }
}

}  // namespace touchpanel::emulator
