#include "touchdriverd/BusObject.h"

#include <functional>
#include <utility>

#include "contract/DriverProperties.h"
#include "providers/linux/dbus/BusNames.h"
#include "providers/linux/dbus/BusValue.h"

namespace touchpanel::driver {

namespace {
std::vector<sdbus::ObjectPath> pathsOf(const std::vector<RegistryObject>& objects) {
  std::vector<sdbus::ObjectPath> paths;
  paths.reserve(objects.size());
  for (const auto object : objects) paths.emplace_back(busPathOf(object));
  return paths;
}
}  // namespace

std::string busPathOf(RegistryObject object) {
  return std::string(bus_name::kObjectsPath) + "/" + std::to_string(object);
}

BusObject::BusObject(sdbus::IConnection& connection, DriverService& service, BusRoot& root,
                     OpenReplies& replies, RegistryObject object)
    : AdaptorInterfaces(connection, busPathOf(object)),
      service_(service),
      root_(root),
      replies_(replies),
      handle_(object) {
  registerAdaptor();
}

BusObject::~BusObject() { unregisterAdaptor(); }

std::vector<sdbus::ObjectPath> BusObject::Children() {
  return pathsOf(service_.registry().childrenOf(handle_));
}

bool BusObject::ConformsTo(const std::string& className) {
  return service_.registry().conformsTo(handle_, className);
}

std::map<std::string, sdbus::Variant> BusObject::Properties() {
  const auto properties = service_.properties(handle_, client());
  if (!properties) throw sdbus::Error(bus_name::kNoDeviceError, "The touchscreen is gone.");
  return toBus(*properties);
}

void BusObject::SetProperty(sdbus::Result<>&& result, std::string name, sdbus::Variant value) {
  const auto known = fromBus(value);
  const auto* written = known ? known->get<Dictionary>() : nullptr;
  const bool isProbe = written != nullptr && written->empty();
  const auto taken = name == property::kCalibration || isProbe ? std::function<void()>()
                                                               : [&root = root_] { root.announceChange(); };
  const auto answer = replies_.answering(std::move(result), name, taken);
  if (!known) return answer(kErrorBadArgument);
  service_.setProperty(handle_, name, *known, client(), answer);
}

std::string BusObject::client() { return getObject().getCurrentlyProcessedMessage()->getSender(); }

std::string BusObject::ClassName() { return std::string(service_.registry().classOf(handle_)); }

BusRoot::BusRoot(sdbus::IConnection& connection, DriverService& service)
    : AdaptorInterfaces(connection, bus_name::kRootPath), service_(service) {
  registerAdaptor();
}

BusRoot::~BusRoot() { unregisterAdaptor(); }

std::vector<sdbus::ObjectPath> BusRoot::InstancesOf(const std::uint32_t& interfaceVersion,
                                                    const std::string& className) {
  if (interfaceVersion != bus_name::kInterfaceVersion)
    throw sdbus::Error(bus_name::kInterfaceVersionError,
                       "The touch driver service speaks interface version " +
                           std::to_string(bus_name::kInterfaceVersion) + ", the caller version " +
                           std::to_string(interfaceVersion) + ". Install both from the same release.");
  return pathsOf(service_.registry().instancesOf(className));
}

void BusRoot::announceChange() {
  try {
    emitChanged();
  } catch (const sdbus::Error&) {
    // Whoever serves the connection notices that it is gone.
  }
}

std::uint32_t BusRoot::InterfaceVersion() { return bus_name::kInterfaceVersion; }

}  // namespace touchpanel::driver
