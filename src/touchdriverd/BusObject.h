#pragma once

#include <map>
#include <string>
#include <vector>

#include <TouchDriverAdaptor.h>
#include <sdbus-c++/sdbus-c++.h>

#include "driver/service/DriverService.h"
#include "touchdriverd/OpenReplies.h"

namespace touchpanel::driver {

/// The D-Bus path of the object with handle `object`.
std::string busPathOf(RegistryObject object);

class BusRoot;

/// One object of the service's registry on D-Bus, published for this object's lifetime.
class BusObject final : public sdbus::AdaptorInterfaces<com::VARNEXO::TouchDriver1::Object_adaptor> {
 public:
  /// `root` announces what is written; like the others it is not owned and must live as long.
  BusObject(sdbus::IConnection& connection, DriverService& service, BusRoot& root, OpenReplies& replies,
            RegistryObject object);
  ~BusObject();
  BusObject(const BusObject&) = delete;
  BusObject& operator=(const BusObject&) = delete;

 private:
  std::vector<sdbus::ObjectPath> Children() override;
  bool ConformsTo(const std::string& className) override;
  std::map<std::string, sdbus::Variant> Properties() override;
  void SetProperty(sdbus::Result<>&& result, std::string name, sdbus::Variant value) override;
  std::string ClassName() override;
  /// Who sent the request that is being answered.
  std::string client();

  DriverService& service_;
  BusRoot& root_;
  OpenReplies& replies_;
  RegistryObject handle_;
};

/// The entry point to the registry.
class BusRoot final : public sdbus::AdaptorInterfaces<com::VARNEXO::TouchDriver1::Registry_adaptor> {
 public:
  BusRoot(sdbus::IConnection& connection, DriverService& service);
  ~BusRoot();
  BusRoot(const BusRoot&) = delete;
  BusRoot& operator=(const BusRoot&) = delete;

  /// Sends the signal Changed, unless the bus is being lost.
  void announceChange();

 private:
  std::vector<sdbus::ObjectPath> InstancesOf(const std::uint32_t& interfaceVersion,
                                             const std::string& className) override;
  std::uint32_t InterfaceVersion() override;

  DriverService& service_;
};

}  // namespace touchpanel::driver
