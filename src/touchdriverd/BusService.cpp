#include "touchdriverd/BusService.h"

#include <utility>

#include "providers/linux/dbus/BusNames.h"

namespace touchpanel::driver {

namespace {
/// Bus names that lost their owner: arg2, the new owner, is empty.
constexpr char kClientLeft[] =
    "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
    "member='NameOwnerChanged',arg2=''";
}  // namespace

BusService::BusService(DriverService& service, Bus bus, std::string name, Diagnostics& diagnostics)
    : service_(service), bus_(bus), name_(std::move(name)), outage_(diagnostics) {}

BusService::~BusService() { disconnect(); }

bool BusService::connect() {
  disconnect();
  try {
    connection_ = connectTo(bus_);
    publishAll();
    connection_->requestName(name_);
  } catch (const sdbus::Error& error) {
    disconnect();
    outage_.begin("D-Bus cannot be served as " + name_ + ": " + error.getMessage() +
                  ". Touches go on; settings cannot be changed.");
    return false;
  }
  outage_.end("D-Bus is served again.");
  return true;
}

void BusService::publishAll() {
  clients_ = connection_->addMatch(kClientLeft, [this](sdbus::Message& message) {
    std::string client;
    message >> client;
    service_.clientLeft(client);
  });
  replies_ = std::make_unique<OpenReplies>();
  registry_ = std::make_unique<BusRoot>(*connection_, service_);
  service_.setObjectListener(this);
}

void BusService::disconnect() {
  service_.setObjectListener(nullptr);
  service_.allClientsLeft();
  objects_.clear();
  registry_.reset();
  replies_.reset();
  clients_.reset();
  connection_.reset();
}

bool BusService::process() {
  try {
    while (connection_->processPendingRequest()) {
    }
    return true;
  } catch (const sdbus::Error& error) {
    disconnect();
    outage_.begin("The connection to D-Bus is lost: " + error.getMessage() +
                  ". Touches go on; settings cannot be changed.");
    return false;
  }
}

void BusService::published(RegistryObject object) {
  objects_.emplace(object,
                   std::make_unique<BusObject>(*connection_, service_, *registry_, *replies_, object));
  registry_->announceChange();
}

void BusService::withdrawn(RegistryObject object) {
  objects_.erase(object);
  registry_->announceChange();
}

}  // namespace touchpanel::driver
