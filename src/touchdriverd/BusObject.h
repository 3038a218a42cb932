#pragma once

#include <map>
#include <string>
#include <vector>

#include <TouchDriverAdaptor.h>
#include <sdbus-c++/sdbus-c++.h>

#include "driver/service/DriverService.h"
#include "touchdriverd/PanelFiles.h"
#include "touchdriverd/WriteRequests.h"

namespace touchpanel::driver {

/// The D-Bus path of the object with handle `object`.
std::string busPathOf(RegistryObject object);

/// What the objects on the bus stand on, none of it owned.
struct BusPorts {
  DriverService& service;
  WriteRequests& writes;
  PanelFiles& files;
};

class BusRoot;

/// One object of the service's registry on D-Bus, published for this object's lifetime.
class BusObject final : public sdbus::AdaptorInterfaces<com::VARNEXO::TouchDriver1::Object_adaptor> {
 public:
  /// `root` announces what is written; it is not owned and must live as long as `ports.writes`.
  BusObject(sdbus::IConnection& connection, const BusPorts& ports, BusRoot& root, RegistryObject object);
  ~BusObject();
  BusObject(const BusObject&) = delete;
  BusObject& operator=(const BusObject&) = delete;

 private:
  std::vector<sdbus::ObjectPath> Children() override;
  bool ConformsTo(const std::string& className) override;
  std::map<std::string, sdbus::Variant> Properties() override;
  void SetProperty(sdbus::Result<>&& result, std::string name, sdbus::Variant value) override;
  std::string ClassName() override;

  BusPorts ports_;
  BusRoot& root_;
  RegistryObject handle_;
};

/// The entry point to the registry, and to the control panel's files.
class BusRoot final : public sdbus::AdaptorInterfaces<com::VARNEXO::TouchDriver1::Registry_adaptor,
                                                      com::VARNEXO::TouchDriver1::Files_adaptor> {
 public:
  BusRoot(sdbus::IConnection& connection, const BusPorts& ports);
  ~BusRoot();
  BusRoot(const BusRoot&) = delete;
  BusRoot& operator=(const BusRoot&) = delete;

  /// Sends the signal Changed, unless the bus is being lost.
  void announceChange();

 private:
  std::vector<sdbus::ObjectPath> InstancesOf(const std::uint32_t& interfaceVersion,
                                             const std::string& className) override;
  std::uint32_t InterfaceVersion() override;
  void Write(sdbus::Result<>&& result, std::string name,
             std::map<std::string, sdbus::Variant> contents) override;

  BusPorts ports_;
};

}  // namespace touchpanel::driver
