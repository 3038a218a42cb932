#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel {

/// Handle of a registry object; 0 is no object. A handle stays the same for as long as the object lives and
/// is never given to another object afterwards.
using RegistryObject = std::uint32_t;

/// The system's registry of driver instances and services, reached by class name.
///
/// Every call blocks until it is answered: microseconds in process, up to 2 s when a service must be asked.
class Registry {
 public:
  virtual ~Registry() = default;

  /// All objects of exactly this class, in the order in which they were published. Empty when there are none
  /// or the registry cannot be reached.
  virtual std::vector<RegistryObject> instancesOf(std::string_view className) = 0;

  /// The direct children of `parent` in registry order; empty for an object that is gone.
  virtual std::vector<RegistryObject> childrenOf(RegistryObject parent) = 0;

  virtual bool conformsTo(RegistryObject object, std::string_view className) = 0;

  /// A copy of all properties of `object`; nothing when it is gone or cannot be read.
  virtual std::optional<Dictionary> properties(RegistryObject object) = 0;

  /// Hands `value` to `object` under the property `name`. A property of driver instances takes a dictionary
  /// whose absent keys stay as they are; an empty dictionary changes nothing and so probes whether the object
  /// lives. Errors: kErrorNoDevice when the object is gone, kErrorBadArgument when it refuses the value.
  virtual Status setProperty(RegistryObject object, std::string_view name, const Value& value) = 0;
};

}  // namespace touchpanel
