#include "driver/service/StateStore.h"

#include "platform/HexText.h"

namespace touchpanel::driver {

std::string StateStore::pathOf(const TouchscreenIdentity& identity) const {
  return directory_ + "/touchscreen-" + hexText(identity.locationId) + "-" + hexText(identity.productId, 4) +
         ".plist";
}

Dictionary StateStore::load(const TouchscreenIdentity& identity) {
  return files_.read(pathOf(identity)).value_or(Dictionary());
}

void StateStore::save(const TouchscreenIdentity& identity, const Dictionary& state) {
  write(pathOf(identity), state);
}

void StateStore::load(HidSystem& hidSystem) {
  const auto contents = files_.read(hidSystemPath());
  if (!contents) return;
  for (const auto& [name, value] : *contents) hidSystem.setProperty(name, value);
}

void StateStore::save(const HidSystem& hidSystem) {
  write(hidSystemPath(), *hidSystem.properties().begin()->second.get<Dictionary>());
}

void StateStore::write(const std::string& path, const Dictionary& contents) {
  if (files_.writeAtomically(path, contents) == kSuccess)
    outage_.end("State can be saved again.");
  else
    outage_.begin("State cannot be saved in " + directory_ + ": settings are lost when the service ends.");
}

}  // namespace touchpanel::driver
