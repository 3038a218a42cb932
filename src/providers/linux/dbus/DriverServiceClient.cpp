#include "providers/linux/dbus/DriverServiceClient.h"

#include <algorithm>
#include <array>
#include <utility>

#include <TouchDriverProxy.h>

#include "contract/DriverProperties.h"
#include "providers/linux/dbus/BusValue.h"

namespace touchpanel {

namespace {
constexpr char kDaemon[] = "org.freedesktop.DBus";
constexpr char kDaemonPath[] = "/org/freedesktop/DBus";
constexpr char kNoServer[] = "org.freedesktop.DBus.Error.NoServer";
constexpr char kServiceUnknown[] = "org.freedesktop.DBus.Error.ServiceUnknown";
constexpr char kNameHasNoOwner[] = "org.freedesktop.DBus.Error.NameHasNoOwner";

/// Calls only: it is never registered, so its signals are not subscribed to.
template <typename Interface>
class Proxy : public sdbus::ProxyInterfaces<Interface> {
 public:
  using sdbus::ProxyInterfaces<Interface>::ProxyInterfaces;
};
class FilesProxy final : public Proxy<com::VARNEXO::TouchDriver1::Files_proxy> {
  using Proxy::Proxy;
};
class RegistryProxy final : public Proxy<com::VARNEXO::TouchDriver1::Registry_proxy> {
  using Proxy::Proxy;
  void onChanged() override {}
};

struct Meaning {
  std::string_view error;
  Status status;
};

/// D-Bus error names as statuses. Only the service itself says that an object is gone; whatever the bus says
/// of the service means that it does not answer.
constexpr std::array kMeanings = {
    Meaning{bus_name::kBadArgumentError, kErrorBadArgument},
    Meaning{bus_name::kUnsupportedError, kErrorUnsupported},
    Meaning{bus_name::kNoDeviceError, kErrorNoDevice},
    Meaning{bus_name::kNotPermittedError, kErrorNotPermitted},
    Meaning{bus_name::kBusyError, kErrorExclusiveAccess},
    Meaning{bus_name::kNotSavedError, kErrorNoSpace},
    Meaning{bus_name::kNotFoundError, kErrorNotFound},
    Meaning{bus_name::kInterfaceVersionError, kErrorUnsupported},
    Meaning{"org.freedesktop.DBus.Error.UnknownObject", kErrorNoDevice},
    Meaning{"org.freedesktop.DBus.Error.UnknownInterface", kErrorUnsupported},
    Meaning{"org.freedesktop.DBus.Error.UnknownMethod", kErrorUnsupported},
    Meaning{"org.freedesktop.DBus.Error.AccessDenied", kErrorNotPermitted},
    Meaning{kNoServer, kErrorNotResponding},
    Meaning{kServiceUnknown, kErrorNotResponding},
    Meaning{kNameHasNoOwner, kErrorNotResponding},
    Meaning{"org.freedesktop.DBus.Error.Disconnected", kErrorNotResponding},
    Meaning{"org.freedesktop.DBus.Error.NoReply", kErrorNotResponding},
    Meaning{"org.freedesktop.DBus.Error.Timeout", kErrorNotResponding},
    Meaning{"System.Error.ECONNRESET", kErrorNotResponding},
    Meaning{"System.Error.ENOTCONN", kErrorNotResponding},
    Meaning{"System.Error.EPIPE", kErrorNotResponding},
    Meaning{"System.Error.ETIMEDOUT", kErrorNotResponding},
};

Status meaningOf(const sdbus::Error& error) {
  for (const auto& meaning : kMeanings)
    if (error.getName() == meaning.error) return meaning.status;
  return kErrorGeneral;
}

bool isOneOf(const sdbus::Error& error, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), error.getName()) != names.end();
}

/// The connection to the bus is gone.
bool isDisconnection(const sdbus::Error& error) {
  return isOneOf(error, {"org.freedesktop.DBus.Error.Disconnected", "System.Error.ENOTCONN",
                         "System.Error.ECONNRESET", "System.Error.EPIPE"});
}

/// Nobody has the name that was called, so nobody got the call.
bool isUndelivered(const sdbus::Error& error) { return isOneOf(error, {kServiceUnknown, kNameHasNoOwner}); }

std::optional<std::uint32_t> locationIn(const BusDictionary& properties) {
  const auto known = fromBus(properties);
  const auto* location = known ? known->find(property::kLocationID) : nullptr;
  if (!location || !location->isNumber()) return std::nullopt;
  return static_cast<std::uint32_t>(location->longInteger());
}
}  // namespace

/// One call of the port, which may take several on the bus but only so long in all.
class DriverServiceClient::Call {
 public:
  Call(sdbus::IConnection& connection, std::chrono::microseconds longest)
      : connection_(connection), end_(std::chrono::steady_clock::now() + longest) {}

  sdbus::IConnection& connection() const {
    using namespace std::chrono;
    const auto left = duration_cast<microseconds>(end_ - steady_clock::now());
    connection_.setMethodCallTimeout(
        static_cast<std::uint64_t>(std::max<microseconds::rep>(left.count(), 1)));
    return connection_;
  }

 private:
  sdbus::IConnection& connection_;
  std::chrono::steady_clock::time_point end_;
};

class DriverServiceClient::ObjectProxy final : public Proxy<com::VARNEXO::TouchDriver1::Object_proxy> {
  using Proxy::Proxy;
};

DriverServiceClient::DriverServiceClient(Diagnostics& diagnostics, Bus bus, std::string service,
                                         std::chrono::microseconds longestCall)
    : bus_(bus), service_(std::move(service)), longestCall_(longestCall), outage_(diagnostics) {}

DriverServiceClient::~DriverServiceClient() = default;

DriverServiceClient::Call DriverServiceClient::begin() {
  try {
    if (!connection_) connection_ = connectTo(bus_);
  } catch (const sdbus::Error& error) {
    throw sdbus::Error(kNoServer, error.getMessage());
  }
  return {*connection_, longestCall_};
}

std::string DriverServiceClient::owner(const Call& call) const {
  std::string found;
  sdbus::createProxy(call.connection(), kDaemon, kDaemonPath)
      ->callMethod("GetNameOwner")
      .onInterface(kDaemon)
      .withArguments(service_)
      .storeResultsTo(found);
  return found;
}

std::string DriverServiceClient::startedOwner(const Call& call) const {
  try {
    return owner(call);
  } catch (const sdbus::Error& error) {
    if (!isUndelivered(error)) throw;
  }
  std::uint32_t started = 0;
  sdbus::createProxy(call.connection(), kDaemon, kDaemonPath)
      ->callMethod("StartServiceByName")
      .onInterface(kDaemon)
      .withArguments(service_, std::uint32_t{0})
      .storeResultsTo(started);
  return owner(call);
}

std::string DriverServiceClient::ownerAfterOutage(const Call& call) const {
  try {
    return owner(call);
  } catch (const sdbus::Error& error) {
    // Not waited for: a calibration probes with each draw, and would stand still until a start has failed.
    if (isUndelivered(error))
      sdbus::createProxy(call.connection(), kDaemon, kDaemonPath)
          ->callMethod("StartServiceByName")
          .onInterface(kDaemon)
          .withArguments(service_, std::uint32_t{0})
          .dontExpectReply();
    throw;
  }
}

void DriverServiceClient::loseRun() {
  owner_.clear();
  paths_.clear();
  for (auto& [handle, place] : places_)
    if (place.state == State::Present) place.state = State::Lost;
}

std::vector<sdbus::ObjectPath> DriverServiceClient::learn(const Call& call, const std::string& owner) {
  if (owner != owner_) loseRun();
  auto drivers = RegistryProxy(call.connection(), owner, bus_name::kRootPath)
                     .InstancesOf(bus_name::kInterfaceVersion, class_name::kTouchDriver);
  for (const auto& driver : drivers)
    if (!paths_.contains(driver)) learnInstance(call, owner, driver);
  owner_ = owner;
  return drivers;
}

void DriverServiceClient::learnInstance(const Call& call, const std::string& owner,
                                        const std::string& driver) {
  std::optional<std::uint32_t> location;
  std::vector<std::pair<std::string, std::string>> objects = {{driver, class_name::kTouchDriver}};
  try {
    for (const auto& child : ObjectProxy(call.connection(), owner, driver).Children()) {
      ObjectProxy proxy(call.connection(), owner, child);
      objects.emplace_back(child, proxy.ClassName());
      if (objects.back().second == class_name::kPointingDevice) location = locationIn(proxy.Properties());
    }
  } catch (const sdbus::Error& error) {
    if (meaningOf(error) != kErrorNoDevice) throw;
    return;  // it has left since it was listed
  }
  for (auto& [path, className] : objects) add(path, std::move(className), location);
}

void DriverServiceClient::add(const std::string& path, std::string className,
                              std::optional<std::uint32_t> locationId) {
  const auto isAtThisPlace = [&](const auto& held) {
    const Place& place = held.second;
    return place.state == State::Lost && locationId && place.locationId == locationId &&
           place.className == className;
  };
  // The newest first: an older handle of the same place belongs to a touchscreen that was replugged.
  const auto lost = std::find_if(places_.rbegin(), places_.rend(), isAtThisPlace);
  if (lost != places_.rend()) {
    lost->second.state = State::Present;
    lost->second.path = path;
    lost->second.isNewRun = true;
    paths_[path] = lost->first;
    return;
  }
  places_.emplace(++last_, Place{std::move(className), locationId, State::Present, path});
  paths_[path] = last_;
}

std::vector<RegistryObject> DriverServiceClient::handlesOf(
    const std::vector<sdbus::ObjectPath>& paths) const {
  std::vector<RegistryObject> objects;
  for (const auto& path : paths)
    if (const auto known = paths_.find(path); known != paths_.end()) objects.push_back(known->second);
  return objects;
}

void DriverServiceClient::answered() { outage_.end("The touch driver service answers."); }

Status DriverServiceClient::failed(const sdbus::Error& error) {
  const bool isSilence = places_.empty() && isUndelivered(error);
  // Its reason changes while an outage lasts: first a call without a reply, then a name without an owner.
  if (!isSilence && !outage_.isUnderWay())
    outage_.begin("The touch driver service does not answer: " + error.getMessage());
  if (isDisconnection(error)) connection_.reset();
  // A new bus numbers its clients afresh, so nothing that was learnt on this one may be used there.
  if (isDisconnection(error) || isUndelivered(error)) loseRun();
  const auto status = meaningOf(error);
  return status == kErrorUnsupported || status == kErrorNotPermitted ? status : kErrorNotResponding;
}

Status DriverServiceClient::availability() {
  try {
    const auto call = begin();
    learn(call, startedOwner(call));
    answered();
    return kSuccess;
  } catch (const sdbus::Error& error) {
    return failed(error);
  }
}

std::vector<RegistryObject> DriverServiceClient::instancesOf(std::string_view className) {
  try {
    const auto call = begin();
    auto found = learn(call, startedOwner(call));
    if (className != class_name::kTouchDriver)
      found = RegistryProxy(call.connection(), owner_, bus_name::kRootPath)
                  .InstancesOf(bus_name::kInterfaceVersion, std::string(className));
    answered();
    return handlesOf(found);
  } catch (const sdbus::Error& error) {
    failed(error);
    return {};
  }
}

bool DriverServiceClient::isReachable(const Call& call, Place& place) {
  if (owner_.empty()) learn(call, ownerAfterOutage(call));
  if (place.state == State::Lost) place.state = State::Gone;
  return place.state == State::Present;
}

void DriverServiceClient::resumeCapture(ObjectProxy& proxy, Place& place) {
  if (place.isNewRun && place.wantsCapture)
    proxy.SetProperty(property::kCalibration, toBus(Dictionary{{calibration_key::kStatCalibrate, true}}));
  place.isNewRun = false;
}

template <typename Action>
Status DriverServiceClient::act(const Call& call, Place& place, const Action& action) {
  if (!isReachable(call, place)) return kErrorNoDevice;
  ObjectProxy proxy(call.connection(), owner_, place.path);
  try {
    resumeCapture(proxy, place);
    action(proxy);
    return kSuccess;
  } catch (const sdbus::Error& error) {
    const auto status = meaningOf(error);
    if (status == kErrorNotResponding) throw;
    if (status == kErrorNoDevice) {
      place.state = State::Gone;
      paths_.erase(place.path);
    }
    return status;
  }
}

template <typename Action>
Status DriverServiceClient::withObject(RegistryObject object, const Action& action) {
  const auto found = places_.find(object);
  if (found == places_.end() || found->second.state == State::Gone) return kErrorNoDevice;
  try {
    const auto call = begin();
    const auto status = [&] {
      try {
        return act(call, found->second, action);
      } catch (const sdbus::Error& error) {
        if (!isUndelivered(error) || owner_.empty()) throw;
        loseRun();
        return act(call, found->second, action);
      }
    }();
    answered();
    return status;
  } catch (const sdbus::Error& error) {
    return failed(error);
  }
}

std::vector<RegistryObject> DriverServiceClient::childrenOf(RegistryObject parent) {
  std::vector<RegistryObject> children;
  withObject(parent, [&](ObjectProxy& proxy) { children = handlesOf(proxy.Children()); });
  return children;
}

bool DriverServiceClient::conformsTo(RegistryObject object, std::string_view className) {
  bool conforms = false;
  withObject(object, [&](ObjectProxy& proxy) { conforms = proxy.ConformsTo(std::string(className)); });
  return conforms;
}

std::optional<Dictionary> DriverServiceClient::properties(RegistryObject object) {
  std::optional<Dictionary> properties;
  withObject(object, [&](ObjectProxy& proxy) { properties = fromBus(proxy.Properties()); });
  return properties;
}

Status DriverServiceClient::setProperty(RegistryObject object, std::string_view name, const Value& value) {
  const auto* message = name == property::kCalibration ? value.get<Dictionary>() : nullptr;
  const auto* capture = message ? message->find(calibration_key::kStatCalibrate) : nullptr;
  const auto place = places_.find(object);
  if (capture && place != places_.end()) place->second.wantsCapture = capture->boolean();
  return withObject(object, [&](ObjectProxy& proxy) { proxy.SetProperty(std::string(name), toBus(value)); });
}

Status DriverServiceClient::writeFile(const std::string& name, const Dictionary& contents) {
  try {
    const auto call = begin();
    const auto owner = startedOwner(call);
    FilesProxy(call.connection(), owner, bus_name::kRootPath).Write(name, toBus(contents));
    answered();
    return kSuccess;
  } catch (const sdbus::Error& error) {
    const auto status = meaningOf(error);
    return status == kErrorNotResponding ? failed(error) : status;
  }
}

}  // namespace touchpanel
