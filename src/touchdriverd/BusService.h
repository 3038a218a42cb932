#pragma once

#include <map>
#include <memory>
#include <string>

#include <sdbus-c++/sdbus-c++.h>

#include "driver/service/DriverService.h"
#include "platform/OutageReport.h"
#include "providers/linux/dbus/BusConnection.h"
#include "touchdriverd/Authority.h"
#include "touchdriverd/BusObject.h"
#include "touchdriverd/PanelFiles.h"
#include "touchdriverd/RequestGate.h"
#include "touchdriverd/WriteRequests.h"

namespace touchpanel::driver {

/// The driver service on D-Bus. It holds one connection at a time; its caller waits on the connection's
/// descriptor, calls process(), and connects again when that fails.
class BusService final : private ObjectListener {
 public:
  /// The references are not owned and must live as long.
  BusService(DriverService& service, PanelFiles& files, Bus bus, std::string name, Trust trust,
             Diagnostics& diagnostics);
  ~BusService() override;
  BusService(const BusService&) = delete;
  BusService& operator=(const BusService&) = delete;

  /// Publishes everything and then takes the name, so that a client that was waiting for the name finds all.
  /// False, reported once, when there is no bus or the name cannot be had. Blocks for a few calls to the bus.
  bool connect();
  /// What to wait for; call only while connected.
  sdbus::IConnection::PollData pollData() const { return connection_->getEventLoopPollData(); }
  /// Answers a few of the requests that have come in, without waiting for more; while others are left pollData() has
  /// a deadline that has passed. False when the bus is gone; the service is then not
  /// connected.
  bool process();

 private:
  void published(RegistryObject object) override;
  void withdrawn(RegistryObject object) override;
  void publishAll();
  void disconnect();

  DriverService& service_;
  PanelFiles& files_;
  Bus bus_;
  std::string name_;
  Trust trust_;
  Diagnostics& diagnostics_;
  OutageReport outage_;
  std::unique_ptr<sdbus::IConnection> connection_;
  std::unique_ptr<RequestGate> gate_;
  sdbus::Slot clients_;
  std::unique_ptr<Authority> authority_;
  std::unique_ptr<WriteRequests> writes_;
  std::unique_ptr<BusRoot> registry_;
  std::map<RegistryObject, std::unique_ptr<BusObject>> objects_;
};

}  // namespace touchpanel::driver
