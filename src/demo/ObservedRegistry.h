#pragma once

#include <functional>

#include "platform/Registry.h"

namespace touchpanel::demo {

/// Decorator: reports what the control panel writes into a registry.
class ObservedRegistry final : public Registry {
 public:
  using Observer = std::function<void(RegistryObject, std::string_view name, const Value&, Status)>;

  explicit ObservedRegistry(Registry& registry) : registry_(registry) {}
  /// Calls `observer` after every property write, from inside the panel's callbacks.
  void observe(Observer observer) { observer_ = std::move(observer); }

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
    const Status status = registry_.setProperty(object, name, value);
    if (observer_) observer_(object, name, value, status);
    return status;
  }

 private:
  Registry& registry_;
  Observer observer_;
};

}  // namespace touchpanel::demo
