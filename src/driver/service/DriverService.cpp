#include "driver/service/DriverService.h"

#include <utility>

#include "contract/DriverProperties.h"

namespace touchpanel::driver {

DriverService::DriverService(const ServicePorts& ports, StateStore& store)
    : ports_(ports), store_(store), settings_(store, ports.diagnostics), captures_(ports.timers) {
  store_.load(hidSystem_);
  registry_.setDoubleClickListener([this] { store_.save(hidSystem_); });
}

void DriverService::touchscreenArrived(const std::string& device, const TouchscreenIdentity& identity) {
  if (instances_.contains(device)) return;
  auto& instance =
      *(instances_[device] = std::make_unique<DriverInstance>(identity, ports_, store_, settings_));
  registry_.publish(instance);
  forEachObject(instance, &ObjectListener::published);
  for (const auto& [node, owner] : nodes_)
    if (owner == device) instance.addNode(node);
}

void DriverService::touchscreenLeft(const std::string& device) {
  const auto found = instances_.find(device);
  if (found == instances_.end()) return;
  forEachObject(*found->second, &ObjectListener::withdrawn);
  registry_.withdraw(*found->second);
  captures_.withdraw(*found->second);
  std::erase_if(nodes_, [&](const auto& node) { return node.second == device; });
  instances_.erase(found);
}

void DriverService::nodeArrived(const std::string& device, const std::string& node) {
  if (!nodes_.emplace(node, device).second) return;
  if (const auto found = instances_.find(device); found != instances_.end()) found->second->addNode(node);
}

void DriverService::nodeLeft(const std::string& node) {
  const auto found = nodes_.find(node);
  if (found == nodes_.end()) return;
  if (const auto owner = instances_.find(found->second); owner != instances_.end())
    owner->second->removeNode(node);
  nodes_.erase(found);
}

void DriverService::setObjectListener(ObjectListener* listener) {
  listener_ = listener;
  for (const auto& [device, instance] : instances_) forEachObject(*instance, &ObjectListener::published);
}

void DriverService::forEachObject(const DriverInstance& instance,
                                  void (ObjectListener::*report)(RegistryObject)) {
  if (!listener_) return;
  for (const auto object : registry_.objectsOf(instance)) (listener_->*report)(object);
}

DriverInstance* DriverService::instanceOf(RegistryObject object) const {
  for (const auto& [device, instance] : instances_)
    if (registry_.objectsOf(*instance).front() == object) return instance.get();
  return nullptr;
}

std::optional<Dictionary> DriverService::properties(RegistryObject object, const std::string& client) {
  auto properties = registry_.properties(object);
  auto* instance = instanceOf(object);
  if (!properties || !instance || captures_.owns(client, *instance)) return properties;
  auto calibration = *properties->dictionary(property::kCalibration);
  for (const auto* key : {calibration_key::kX, calibration_key::kY, calibration_key::kPointId})
    calibration.set(key, 0);
  properties->set(property::kCalibration, std::move(calibration));
  return properties;
}

void DriverService::setProperty(RegistryObject object, std::string_view name, const Value& value,
                                const std::string& client, StateStore::Done done) {
  auto* instance = instanceOf(object);
  if (instance && captures_.refuses(client, *instance, name, value)) return done(kErrorExclusiveAccess);
  const auto savesBefore = store_.saves();
  const auto status = registry_.setProperty(object, name, value);
  if (status != kSuccess) return done(status);
  if (instance) {
    captures_.written(client, *instance);
    instance->calibrationKeeping().written(client);
  }
  if (store_.saves() == savesBefore) return done(kSuccess);
  store_.whenDurable(std::move(done));
}

void DriverService::clientLeft(const std::string& client) {
  captures_.clientLeft(client);
  for (const auto& [device, instance] : instances_) instance->calibrationKeeping().clientLeft(client);
}

void DriverService::allClientsLeft() {
  captures_.allClientsLeft();
  for (const auto& [device, instance] : instances_) instance->calibrationKeeping().allClientsLeft();
}

}  // namespace touchpanel::driver
