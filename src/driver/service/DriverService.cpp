#include "driver/service/DriverService.h"

#include "contract/DriverProperties.h"

namespace touchpanel::driver {

DriverService::DriverService(const ServicePorts& ports, StateStore& store) : ports_(ports), store_(store) {
  store_.load(hidSystem_);
  registry_.setDoubleClickListener([this] { store_.save(hidSystem_); });
}

void DriverService::touchscreenArrived(const std::string& device, const TouchscreenIdentity& identity) {
  if (instances_.contains(device)) return;
  auto& instance = *(instances_[device] = std::make_unique<DriverInstance>(identity, ports_, store_));
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
  calibrating_.erase(found->second.get());
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

Status DriverService::setProperty(RegistryObject object, std::string_view name, const Value& value,
                                  const std::string& client) {
  const auto status = registry_.setProperty(object, name, value);
  if (status != kSuccess) return status;
  for (const auto& [device, instance] : instances_) {
    if (!instance->capturing())
      calibrating_.erase(instance.get());
    else
      calibrating_.emplace(instance.get(), client);
  }
  return kSuccess;
}

void DriverService::clientLeft(const std::string& client) {
  for (const auto& [device, instance] : instances_) {
    const auto run = calibrating_.find(instance.get());
    if (run == calibrating_.end() || run->second != client) continue;
    calibrating_.erase(run);
    instance->setProperty(property::kCalibration, Dictionary{{calibration_key::kStatCalibrate, false}});
  }
}

}  // namespace touchpanel::driver
