#pragma once

#include <memory>
#include <vector>

#include "driver/PublishedInstances.h"
#include "platform/Registry.h"
#include "providers/simulated/SimulatedTouchscreen.h"

namespace touchpanel::simulated {

/// The registry of a simulated machine: the driver instances of the touchscreens that are plugged in.
class SimulatedRegistry final : public Registry {
 public:
  SimulatedRegistry();
  ~SimulatedRegistry() override;

  /// Publishes a driver instance for `touchscreen`, which must stay until withdraw().
  RegistryObject publish(SimulatedTouchscreen& touchscreen);
  /// Takes the driver instance and everything below it away.
  void withdraw(SimulatedTouchscreen& touchscreen);

  std::vector<RegistryObject> instancesOf(std::string_view className) override {
    return registry_.instancesOf(className);
  }
  std::vector<RegistryObject> childrenOf(RegistryObject parent) override {
    return registry_.childrenOf(parent);
  }
  bool conformsTo(RegistryObject object, std::string_view className) override {
    return registry_.conformsTo(object, className);
  }
  std::optional<Dictionary> properties(RegistryObject object) override {
    return registry_.properties(object);
  }
  Status setProperty(RegistryObject object, std::string_view name, const Value& value) override {
    return registry_.setProperty(object, name, value);
  }

 private:
  class Instance;

  driver::HidSystem hidSystem_;
  driver::PublishedInstances registry_{hidSystem_};
  std::vector<std::unique_ptr<Instance>> instances_;
};

}  // namespace touchpanel::simulated
