#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "driver/PublishedInstances.h"
#include "driver/service/CaptureOwners.h"
#include "driver/service/DriverInstance.h"
#include "platform/TouchscreenListener.h"

namespace touchpanel::driver {

/// Hears of objects that come and go in the service's registry.
class ObjectListener {
 public:
  virtual ~ObjectListener() = default;
  virtual void published(RegistryObject object) = 0;
  virtual void withdrawn(RegistryObject object) = 0;
};

/// All attached touchscreens, and what control panels write to them.
class DriverService final : public TouchscreenListener {
 public:
  DriverService(const ServicePorts& ports, StateStore& store);

  void touchscreenArrived(const std::string& device, const TouchscreenIdentity& identity) override;
  void touchscreenLeft(const std::string& device) override;
  void nodeArrived(const std::string& device, const std::string& node) override;
  void nodeLeft(const std::string& node) override;

  /// What a control panel sees.
  PublishedInstances& registry() { return registry_; }
  /// `listener` may be null; the objects that are already there are reported, too.
  void setObjectListener(ObjectListener* listener);

  /// The properties of `object` as `client` may see them, a name that no other client ever has: captured points
  /// only where the capture is its own. Nothing when the object is gone.
  std::optional<Dictionary> properties(RegistryObject object, const std::string& client);
  /// A property write by `client`. `done` gets the status of a refused write, and of one that is to be kept once it
  /// is on disk. Beside the errors of the registry: kErrorExclusiveAccess for the capture of another client;
  /// kErrorNoSpace, kErrorNotPermitted, kErrorInputOutput or kErrorNotFound when it is in force, but not saved.
  void setProperty(RegistryObject object, std::string_view name, const Value& value,
                   const std::string& client, StateStore::Done done);
  /// The client is gone: ends its calibration run and its trial of a calibration.
  void clientLeft(const std::string& client);
  /// Clients cannot be told apart from those before any more.
  void allClientsLeft();

 private:
  /// The touchscreen whose driver object `object` is; null for any other.
  DriverInstance* instanceOf(RegistryObject object) const;
  void forEachObject(const DriverInstance& instance, void (ObjectListener::*report)(RegistryObject));

  ServicePorts ports_;
  StateStore& store_;
  SettingsInForce settings_;
  HidSystem hidSystem_;
  PublishedInstances registry_{hidSystem_};
  std::map<std::string, std::unique_ptr<DriverInstance>> instances_;
  std::map<std::string, std::string> nodes_;  ///< node to device
  CaptureOwners captures_;
  ObjectListener* listener_ = nullptr;
};

}  // namespace touchpanel::driver
