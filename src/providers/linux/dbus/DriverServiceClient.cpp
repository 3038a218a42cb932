#include "providers/linux/dbus/DriverServiceClient.h"

#include <algorithm>
#include <array>
#include <utility>

#include <TouchDriverProxy.h>

#include "providers/linux/dbus/BusValue.h"

namespace touchpanel {

namespace {
constexpr char kDaemon[] = "org.freedesktop.DBus";
constexpr char kDaemonPath[] = "/org/freedesktop/DBus";

template <typename Interface>
class Proxy final : public sdbus::ProxyInterfaces<Interface> {
 public:
  Proxy(sdbus::IConnection& connection, const std::string& owner, const std::string& path)
      : sdbus::ProxyInterfaces<Interface>(connection, owner, path) {
    this->registerProxy();
  }
  ~Proxy() { this->unregisterProxy(); }
  Proxy(const Proxy&) = delete;
  Proxy& operator=(const Proxy&) = delete;
};
using ObjectProxy = Proxy<com::VARNEXO::TouchDriver1::Object_proxy>;
using RegistryProxy = Proxy<com::VARNEXO::TouchDriver1::Registry_proxy>;

struct Meaning {
  std::string_view error;
  Status status;
};

/// D-Bus error names as statuses.
constexpr std::array kMeanings = {
    Meaning{bus_name::kBadArgumentError, kErrorBadArgument},
    Meaning{bus_name::kUnsupportedError, kErrorUnsupported},
    Meaning{bus_name::kNoDeviceError, kErrorNoDevice},
    Meaning{bus_name::kInterfaceVersionError, kErrorUnsupported},
    Meaning{"org.freedesktop.DBus.Error.UnknownObject", kErrorNoDevice},
    Meaning{"org.freedesktop.DBus.Error.UnknownInterface", kErrorNoDevice},
    Meaning{"org.freedesktop.DBus.Error.UnknownMethod", kErrorNoDevice},
    Meaning{"org.freedesktop.DBus.Error.ServiceUnknown", kErrorNoDevice},
    Meaning{"org.freedesktop.DBus.Error.NameHasNoOwner", kErrorNoDevice},
    Meaning{"org.freedesktop.DBus.Error.Disconnected", kErrorNoDevice},
    Meaning{"org.freedesktop.DBus.Error.AccessDenied", kErrorNotPermitted},
    Meaning{"org.freedesktop.DBus.Error.NoReply", kErrorTimeout},
    Meaning{"org.freedesktop.DBus.Error.Timeout", kErrorTimeout},
    Meaning{"System.Error.ETIMEDOUT", kErrorTimeout},
};

Status meaningOf(const sdbus::Error& error) {
  for (const auto& meaning : kMeanings)
    if (error.getName() == meaning.error) return meaning.status;
  return kErrorGeneral;
}

/// The connection itself is gone, so there is no reply.
bool isDisconnection(const sdbus::Error& error) {
  static constexpr std::array<std::string_view, 4> kNames = {"org.freedesktop.DBus.Error.Disconnected",
                                                             "System.Error.ENOTCONN",
                                                             "System.Error.ECONNRESET", "System.Error.EPIPE"};
  return std::find(kNames.begin(), kNames.end(), error.getName()) != kNames.end();
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

DriverServiceClient::DriverServiceClient(Diagnostics& diagnostics, Bus bus, std::string service,
                                         std::chrono::microseconds longestCall)
    : bus_(bus), service_(std::move(service)), longestCall_(longestCall), outage_(diagnostics) {}

DriverServiceClient::~DriverServiceClient() = default;

Status DriverServiceClient::failed(const sdbus::Error& error) {
  if (isDisconnection(error)) {
    // A new bus numbers its clients afresh, so nothing that was learnt on this one may be used there.
    connection_.reset();
    places_.clear();
    handles_.clear();
    return kErrorNoDevice;
  }
  return meaningOf(error);
}

std::string DriverServiceClient::owner(const Call& call) {
  const auto daemon = sdbus::createProxy(call.connection(), kDaemon, kDaemonPath);
  const auto ask = [&] {
    std::string found;
    daemon->callMethod("GetNameOwner").onInterface(kDaemon).withArguments(service_).storeResultsTo(found);
    return found;
  };
  try {
    return ask();
  } catch (const sdbus::Error&) {
    std::uint32_t started = 0;
    call.connection();
    daemon->callMethod("StartServiceByName")
        .onInterface(kDaemon)
        .withArguments(service_, std::uint32_t{0})
        .storeResultsTo(started);
    call.connection();
    return ask();
  }
}

std::vector<RegistryObject> DriverServiceClient::handlesOf(const std::string& owner,
                                                           const std::vector<sdbus::ObjectPath>& paths) {
  std::vector<RegistryObject> objects;
  for (const auto& path : paths) {
    const Place place{owner, path};
    const auto [known, isNew] = handles_.emplace(place, last_ + 1);
    if (isNew) places_.emplace(++last_, place);
    objects.push_back(known->second);
  }
  return objects;
}

std::vector<RegistryObject> DriverServiceClient::instancesOf(std::string_view className) {
  try {
    if (!connection_) connection_ = connectTo(bus_);
    const Call call(*connection_, longestCall_);
    const auto current = owner(call);
    RegistryProxy proxy(call.connection(), current, bus_name::kRootPath);
    auto found = handlesOf(current, proxy.InstancesOf(bus_name::kInterfaceVersion, std::string(className)));
    outage_.end("The touch driver service answers.");
    return found;
  } catch (const sdbus::Error& error) {
    if (failed(error) != kErrorNoDevice)
      outage_.begin("The touch driver service cannot be asked: " + error.getMessage());
    return {};
  }
}

template <typename Use>
Status DriverServiceClient::withObject(RegistryObject object, Use use) {
  const auto found = places_.find(object);
  if (found == places_.end() || !connection_) return kErrorNoDevice;
  const auto place = found->second;
  try {
    ObjectProxy proxy(Call(*connection_, longestCall_).connection(), place.owner, place.path);
    use(proxy, place);
    return kSuccess;
  } catch (const sdbus::Error& error) {
    return failed(error);
  }
}

std::vector<RegistryObject> DriverServiceClient::childrenOf(RegistryObject parent) {
  std::vector<RegistryObject> children;
  withObject(parent, [&](ObjectProxy& proxy, const Place& place) {
    children = handlesOf(place.owner, proxy.Children());
  });
  return children;
}

bool DriverServiceClient::conformsTo(RegistryObject object, std::string_view className) {
  bool conforms = false;
  withObject(object,
             [&](ObjectProxy& proxy, const Place&) { conforms = proxy.ConformsTo(std::string(className)); });
  return conforms;
}

std::optional<Dictionary> DriverServiceClient::properties(RegistryObject object) {
  std::optional<Dictionary> properties;
  withObject(object, [&](ObjectProxy& proxy, const Place&) { properties = fromBus(proxy.Properties()); });
  return properties;
}

Status DriverServiceClient::setProperty(RegistryObject object, std::string_view name, const Value& value) {
  return withObject(
      object, [&](ObjectProxy& proxy, const Place&) { proxy.SetProperty(std::string(name), toBus(value)); });
}

}  // namespace touchpanel
