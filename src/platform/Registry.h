#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel {

/// Handle of a registry object; 0 is no object. A handle stays the same for as long as the object lives, also
/// when the service that publishes it is restarted meanwhile, and is never given to another object afterwards.
using RegistryObject = std::uint32_t;

/// The system's registry of driver instances and services, reached by class name.
///
/// Every call blocks until it is answered: microseconds in process, up to 2 s when a service must be asked.
///
/// Two statuses say that a call did not get through, and only one of them is final: kErrorNoDevice means that
/// the object is gone for good, as the registry itself said. kErrorNotResponding means that nobody answered:
/// the service is down, hangs or is being started. The object may well live, a write may even have arrived,
/// and the same handle works again as soon as the service does.
class Registry {
 public:
  virtual ~Registry() = default;

  /// Whether the registry can be asked: kErrorNotResponding when the service behind it cannot, also not by
  /// starting it, kErrorNotPermitted when this user may not, kErrorUnsupported when it is of another version.
  virtual Status availability() { return kSuccess; }

  /// All objects of exactly this class, in the order in which they were published. Empty when there are none
  /// or the registry is not available.
  virtual std::vector<RegistryObject> instancesOf(std::string_view className) = 0;

  /// The direct children of `parent` in registry order; empty for an object that is gone.
  virtual std::vector<RegistryObject> childrenOf(RegistryObject parent) = 0;

  virtual bool conformsTo(RegistryObject object, std::string_view className) = 0;

  /// A copy of all properties of `object`; nothing when it is gone, does not answer or cannot be read.
  virtual std::optional<Dictionary> properties(RegistryObject object) = 0;

  /// Hands `value` to `object` under the property `name`. A property of driver instances takes a dictionary
  /// whose absent keys stay as they are; an empty dictionary changes nothing and so probes whether the object
  /// lives. Errors: kErrorNoDevice and kErrorNotResponding as above, kErrorBadArgument when the object refuses
  /// the value, kErrorUnsupported when it has no such property, kErrorNotPermitted when this user may not
  /// write, kErrorGeneral when the write failed for a reason of its own.
  virtual Status setProperty(RegistryObject object, std::string_view name, const Value& value) = 0;
};

}  // namespace touchpanel
