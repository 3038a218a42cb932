#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
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
/// A handle names a place: the instance at a USB location, or its pointing device or HID system. It outlives
/// the service that it was learnt from:
///
///     state     | the service is gone   | it is back, and the place has | it is back, and the place | it says that the
///               |                       | an object of that class       | is empty                  | object is gone
///     ----------+-----------------------+-------------------------------+---------------------------+-----------------
///     Present   | Lost, not responding  |                               |                           | Gone, no device
///     Lost      | Lost, not responding  | Present at its new path       | Gone, no device           |
///     Gone      | Gone, no device       | Gone, no device               | Gone, no device           |
///
/// The service publishes what is attached before it takes its name, so an empty place is empty for good, and
/// the unplugging of a touchscreen is noticed however shortly before the service was restarted.
///
/// All that an instance forgets when its service ends is that it captures touches, for a calibration that goes
/// on in the panel; so that is said again before the next call.
///
/// Each call takes `longestCall` at the most. A write during which the service ends is not sent again: nobody
/// knows whether it arrived.
class DriverServiceClient final : public Registry {
 public:
  /// The beginning and the end of each outage are reported to `diagnostics`, once each; that there has been
  /// no service so far is no outage.
  explicit DriverServiceClient(Diagnostics& diagnostics, Bus bus = Bus::System,
                               std::string service = bus_name::kService,
                               std::chrono::microseconds longestCall = std::chrono::seconds(2));
  ~DriverServiceClient() override;

  Status availability() override;
  std::vector<RegistryObject> instancesOf(std::string_view className) override;
  std::vector<RegistryObject> childrenOf(RegistryObject parent) override;
  bool conformsTo(RegistryObject object, std::string_view className) override;
  std::optional<Dictionary> properties(RegistryObject object) override;
  Status setProperty(RegistryObject object, std::string_view name, const Value& value) override;

  /// Has the service write one of the control panel's two files. What the service says, as for setProperty();
  /// kErrorNotFound when it has no folder for them.
  Status writeFile(const std::string& name, const Dictionary& contents);

 private:
  enum class State { Present, Lost, Gone };
  /// What a handle leads to.
  struct Place {
    std::string className;
    std::optional<std::uint32_t> locationId;  ///< nothing where the service did not say it
    State state = State::Present;
    std::string path;           ///< in the present run of the service
    bool wantsCapture = false;  ///< as last written, whether or not it arrived
    bool isNewRun = false;      ///< the handle has just been led to this run of the service
  };
  class Call;
  class ObjectProxy;

  /// Runs `action` on the object's proxy. kErrorNoDevice for a handle that is gone; when the service itself
  /// cannot be reached, what failed() says; else what the object answers.
  template <typename Action>
  Status withObject(RegistryObject object, const Action& action);
  template <typename Action>
  Status act(const Call& call, Place& place, const Action& action);
  void resumeCapture(ObjectProxy& proxy, Place& place);
  /// Whether `place` has an object, once the present run is known. Throws when there is none.
  bool isReachable(const Call& call, Place& place);

  Call begin();
  /// The unique name of the service on the bus. Throws what the bus says when nobody has the service's name.
  std::string owner(const Call& call) const;
  std::string startedOwner(const Call& call) const;
  std::string ownerAfterOutage(const Call& call) const;
  /// Makes `owner` the present run, learns its objects and leads the lost handles to them. Returns its driver
  /// instances in their order.
  std::vector<sdbus::ObjectPath> learn(const Call& call, const std::string& owner);
  void learnInstance(const Call& call, const std::string& owner, const std::string& driver);
  void add(const std::string& path, std::string className, std::optional<std::uint32_t> locationId);
  void loseRun();
  std::vector<RegistryObject> handlesOf(const std::vector<sdbus::ObjectPath>& paths) const;

  void answered();
  /// Takes note that the service could not be reached. kErrorUnsupported for one of another version,
  /// kErrorNotPermitted where the bus forbids it, else kErrorNotResponding.
  Status failed(const sdbus::Error& error);

  Bus bus_;
  std::string service_;
  std::chrono::microseconds longestCall_;
  OutageReport outage_;
  std::unique_ptr<sdbus::IConnection> connection_;
  std::string owner_;                            ///< the run that paths are of; empty while there is none
  std::map<std::string, RegistryObject> paths_;  ///< objects of that run
  std::map<RegistryObject, Place> places_;
  RegistryObject last_ = 0;
};

}  // namespace touchpanel
