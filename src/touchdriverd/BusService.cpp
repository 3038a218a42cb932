#include "touchdriverd/BusService.h"

#include <utility>

#include "providers/linux/dbus/BusNames.h"

namespace touchpanel::driver {

namespace {
/// Bus names that lost their owner: arg2, the new owner, is empty.
constexpr char kClientLeft[] =
    "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
    "member='NameOwnerChanged',arg2=''";
/// So that neither timers nor other descriptors wait for those who call without pause.
constexpr int kRequestsPerTurn = 8;
}  // namespace

BusService::BusService(DriverService& service, PanelFiles& files, Bus bus, std::string name, Trust trust,
                       Diagnostics& diagnostics)
    : service_(service),
      files_(files),
      bus_(bus),
      name_(std::move(name)),
      trust_(std::move(trust)),
      diagnostics_(diagnostics),
      outage_(diagnostics) {}

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
  gate_ = std::make_unique<RequestGate>(*connection_);
  clients_ = connection_->addMatch(kClientLeft, [this](sdbus::Message& message) {
    std::string client;
    message >> client;
    service_.clientLeft(client);
    writes_->clientLeft(client);
    authority_->clientLeft(client);
  });
  authority_ = std::make_unique<Authority>(*connection_, trust_, diagnostics_);
  writes_ = std::make_unique<WriteRequests>(*authority_);
  registry_ = std::make_unique<BusRoot>(*connection_, BusPorts{service_, *writes_, files_});
  service_.setObjectListener(this);
}

void BusService::disconnect() {
  service_.setObjectListener(nullptr);
  service_.allClientsLeft();
  objects_.clear();
  registry_.reset();
  writes_.reset();
  authority_.reset();
  clients_.reset();
  gate_.reset();
  connection_.reset();
}

bool BusService::process() {
  try {
    for (int turn = 0; turn < kRequestsPerTurn && connection_->processPendingRequest(); ++turn) {
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
  const BusPorts ports{service_, *writes_, files_};
  objects_.emplace(object, std::make_unique<BusObject>(*connection_, ports, *registry_, object));
  registry_->announceChange();
}

void BusService::withdrawn(RegistryObject object) {
  objects_.erase(object);
  registry_->announceChange();
}

}  // namespace touchpanel::driver
