#include "providers/simulated/SimulatedRegistry.h"

#include <algorithm>

#include "platform/DriverProperties.h"

namespace touchpanel::simulated {

RegistryObject SimulatedRegistry::publish(SimulatedTouchscreen& touchscreen) {
  Instance instance;
  instance.driver = ++lastHandle_;
  instance.pointingDevice = ++lastHandle_;
  instance.hidSystem = ++lastHandle_;
  instance.touchscreen = &touchscreen;
  tellDoubleClick(touchscreen.driver());
  instances_.push_back(instance);
  return instance.driver;
}

void SimulatedRegistry::withdraw(SimulatedTouchscreen& touchscreen) {
  std::erase_if(instances_, [&](const Instance& instance) { return instance.touchscreen == &touchscreen; });
}

std::vector<RegistryObject> SimulatedRegistry::instancesOf(std::string_view className) {
  std::vector<RegistryObject> found;
  for (const auto& instance : instances_)
    for (const auto object : {instance.driver, instance.pointingDevice, instance.hidSystem})
      if (conformsTo(object, className)) found.push_back(object);
  return found;
}

std::vector<RegistryObject> SimulatedRegistry::childrenOf(RegistryObject parent) {
  const auto* instance = owner(parent);
  if (instance == nullptr || instance->driver != parent) return {};
  return {instance->pointingDevice, instance->hidSystem};
}

bool SimulatedRegistry::conformsTo(RegistryObject object, std::string_view className) {
  const auto* instance = owner(object);
  if (instance == nullptr) return false;
  if (object == instance->driver) return className == class_name::kTouchDriver;
  return className ==
         (object == instance->pointingDevice ? class_name::kPointingDevice : class_name::kHidSystem);
}

std::optional<Dictionary> SimulatedRegistry::properties(RegistryObject object) {
  const auto* instance = owner(object);
  if (instance == nullptr) return std::nullopt;
  if (object == instance->driver) return instance->touchscreen->driver().properties();
  if (object == instance->hidSystem) return hidProperties();
  return Dictionary{{property::kLocationID, std::int64_t{instance->touchscreen->locationId()}}};
}

Status SimulatedRegistry::setProperty(RegistryObject object, std::string_view name, const Value& value) {
  const auto* instance = owner(object);
  if (instance == nullptr) return kErrorNoDevice;
  if (object == instance->driver) return instance->touchscreen->driver().setProperty(name, value);
  if (object == instance->hidSystem) return setDoubleClick(name, value);
  return kErrorUnsupported;
}

const SimulatedRegistry::Instance* SimulatedRegistry::owner(RegistryObject object) const {
  const auto found = std::find_if(instances_.begin(), instances_.end(), [&](const Instance& i) {
    return object == i.driver || object == i.pointingDevice || object == i.hidSystem;
  });
  return found == instances_.end() ? nullptr : &*found;
}

Dictionary SimulatedRegistry::hidProperties() const {
  return {{property::kHidParameters,
           Dictionary{{property::kHidClickTime, doubleClick_.timeNs},
                      {property::kHidClickSpace, Array{doubleClick_.spaceX, doubleClick_.spaceY}}}}};
}

Status SimulatedRegistry::setDoubleClick(std::string_view name, const Value& value) {
  if (name == property::kHidClickTime) {
    if (!value.isNumber()) return kErrorBadArgument;
    doubleClick_.timeNs = value.longInteger();
  } else if (name == property::kHidClickSpace) {
    const auto* space = value.get<Array>();
    if (space == nullptr || space->size() != 2) return kErrorBadArgument;
    doubleClick_.spaceX = (*space)[0].integer();
    doubleClick_.spaceY = (*space)[1].integer();
  } else {
    return kErrorUnsupported;
  }
  for (const auto& instance : instances_) tellDoubleClick(instance.touchscreen->driver());
  return kSuccess;
}

void SimulatedRegistry::tellDoubleClick(driver::TouchDriver& driver) const {
  const auto time =
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::nanoseconds(doubleClick_.timeNs));
  driver.setDoubleClick(time, doubleClick_.spaceX);
}

}  // namespace touchpanel::simulated
