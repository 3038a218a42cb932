#pragma once

#include <map>
#include <string>
#include <vector>

#include "contract/DriverProperties.h"
#include "platform/Registry.h"

namespace touchpanel::testing {

/// A registry that is a plain tree of objects, and remembers every property write in order.
class FakeRegistry final : public Registry {
 public:
  struct Object {
    std::string className;
    RegistryObject parent = 0;
    std::optional<Dictionary> properties = Dictionary();
  };
  struct Write {
    RegistryObject object = 0;
    std::string name;
    Value value = false;
    bool operator==(const Write&) const = default;
  };

  RegistryObject add(std::string className, RegistryObject parent = 0, Dictionary properties = {}) {
    objects[++last_] = {std::move(className), parent, std::move(properties)};
    return last_;
  }
  /// A driver instance with its pointing device at `locationId`.
  RegistryObject addDriver(std::int64_t locationId) {
    const auto driver = add(class_name::kTouchDriver);
    add(class_name::kPointingDevice, driver, {{property::kLocationID, locationId}});
    return driver;
  }
  /// Takes `object` and everything below it away: reads find nothing and writes fail.
  void remove(RegistryObject object) {
    for (const auto child : childrenOf(object)) remove(child);
    objects.erase(object);
  }
  std::vector<Write> writesTo(RegistryObject object) const {
    std::vector<Write> found;
    for (const auto& write : writes)
      if (write.object == object) found.push_back(write);
    return found;
  }

  std::vector<RegistryObject> instancesOf(std::string_view className) override {
    std::vector<RegistryObject> found;
    for (const auto& [handle, object] : objects)
      if (object.className == className) found.push_back(handle);
    return found;
  }
  std::vector<RegistryObject> childrenOf(RegistryObject parent) override {
    std::vector<RegistryObject> found;
    for (const auto& [handle, object] : objects)
      if (object.parent == parent && parent != 0) found.push_back(handle);
    return found;
  }
  bool conformsTo(RegistryObject object, std::string_view className) override {
    const auto found = objects.find(object);
    return found != objects.end() && found->second.className == className;
  }
  std::optional<Dictionary> properties(RegistryObject object) override {
    const auto found = objects.find(object);
    if (found == objects.end()) return std::nullopt;
    return found->second.properties;
  }
  Status setProperty(RegistryObject object, std::string_view name, const Value& value) override {
    ++writeAttempts;
    if (!objects.contains(object)) return kErrorNoDevice;
    writes.push_back({object, std::string(name), value});
    return kSuccess;
  }

  std::map<RegistryObject, Object> objects;
  std::vector<Write> writes;  ///< successful ones only
  int writeAttempts = 0;

 private:
  RegistryObject last_ = 0;
};

}  // namespace touchpanel::testing
