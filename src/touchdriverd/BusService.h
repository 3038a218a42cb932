#pragma once

#include <map>
#include <memory>
#include <string>

#include <sdbus-c++/sdbus-c++.h>

#include "driver/service/DriverService.h"
#include "platform/OutageReport.h"
#include "providers/linux/dbus/BusConnection.h"
#include "touchdriverd/BusObject.h"
#include "touchdriverd/OpenReplies.h"

namespace touchpanel::driver {

/// The driver service on D-Bus. It holds one connection at a time; its caller waits on the connection's
/// descriptor, calls process(), and connects again when that fails.
class BusService final : private ObjectListener {
 public:
  /// `service` is not owned and must live as long.
  BusService(DriverService& service, Bus bus, std::string name, Diagnostics& diagnostics);
  ~BusService() override;
  BusService(const BusService&) = delete;
  BusService& operator=(const BusService&) = delete;

  /// Publishes everything and then takes the name, so that a client that was waiting for the name finds all.
  /// False, reported once, when there is no bus or the name cannot be had. Blocks for a few calls to the bus.
  bool connect();
  /// What to wait for; call only while connected.
  sdbus::IConnection::PollData pollData() const { return connection_->getEventLoopPollData(); }
  /// Answers what has come in, without waiting for more. False when the bus is gone; the service is then not
  /// connected.
  bool process();

 private:
  void published(RegistryObject object) override;
  void withdrawn(RegistryObject object) override;
  void publishAll();
  void disconnect();

  DriverService& service_;
  Bus bus_;
  std::string name_;
  OutageReport outage_;
  std::unique_ptr<sdbus::IConnection> connection_;
  sdbus::Slot clients_;
  std::unique_ptr<OpenReplies> replies_;
  std::unique_ptr<BusRoot> registry_;
  std::map<RegistryObject, std::unique_ptr<BusObject>> objects_;
};

}  // namespace touchpanel::driver
