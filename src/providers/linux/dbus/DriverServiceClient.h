#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "platform/Diagnostics.h"
#include "platform/OutageReport.h"
#include "platform/Registry.h"
#include "providers/linux/dbus/BusConnection.h"
#include "providers/linux/dbus/BusNames.h"

namespace touchpanel {

/// The registry of the touch driver service, reached over D-Bus, which starts the service where that is set
/// up.
///
/// Each call takes `longestCall` at the most. Without a bus or a service nothing is found. A handle names an
/// object of one run of the service: after a restart the old handles are dead and the next search finds the
/// new objects.
class DriverServiceClient final : public Registry {
 public:
  /// Why nothing can be found is reported once to `diagnostics`, unless there simply is no service.
  explicit DriverServiceClient(Diagnostics& diagnostics, Bus bus = Bus::System,
                               std::string service = bus_name::kService,
                               std::chrono::microseconds longestCall = std::chrono::seconds(2));
  ~DriverServiceClient() override;

  std::vector<RegistryObject> instancesOf(std::string_view className) override;
  std::vector<RegistryObject> childrenOf(RegistryObject parent) override;
  bool conformsTo(RegistryObject object, std::string_view className) override;
  std::optional<Dictionary> properties(RegistryObject object) override;
  Status setProperty(RegistryObject object, std::string_view name, const Value& value) override;

 private:
  /// An object: which run of the service has it, and where. No two runs have the same owner on one bus.
  struct Place {
    std::string owner;
    std::string path;
    bool operator<(const Place& other) const {
      return std::tie(owner, path) < std::tie(other.owner, other.path);
    }
  };
  class Call;

  /// Runs `call` on the object's proxy; kErrorNoDevice for a handle that is dead, else what the failure
  /// means.
  template <typename Use>
  Status withObject(RegistryObject object, Use use);
  Status failed(const sdbus::Error& error);
  std::string owner(const Call& call);
  std::vector<RegistryObject> handlesOf(const std::string& owner,
                                        const std::vector<sdbus::ObjectPath>& paths);

  Bus bus_;
  std::string service_;
  std::chrono::microseconds longestCall_;
  OutageReport outage_;
  std::unique_ptr<sdbus::IConnection> connection_;
  std::map<RegistryObject, Place> places_;
  std::map<Place, RegistryObject> handles_;
  RegistryObject last_ = 0;
};

}  // namespace touchpanel
