#include "touchdriverd/BusObject.h"

#include <utility>

#include "contract/DriverProperties.h"
#include "providers/linux/dbus/BusNames.h"
#include "providers/linux/dbus/BusValue.h"
#include "touchdriverd/BusErrors.h"

namespace touchpanel::driver {

namespace {
std::vector<sdbus::ObjectPath> pathsOf(const std::vector<RegistryObject>& objects) {
  std::vector<sdbus::ObjectPath> paths;
  paths.reserve(objects.size());
  for (const auto object : objects) paths.emplace_back(busPathOf(object));
  return paths;
}
/// Who sent the request that is being answered.
std::string senderTo(const sdbus::IObject& object) {
  return object.getCurrentlyProcessedMessage()->getSender();
}
}  // namespace

std::string busPathOf(RegistryObject object) {
  return std::string(bus_name::kObjectsPath) + "/" + std::to_string(object);
}

BusObject::BusObject(sdbus::IConnection& connection, const BusPorts& ports, BusRoot& root,
                     RegistryObject object)
    : AdaptorInterfaces(connection, busPathOf(object)), ports_(ports), root_(root), handle_(object) {
  registerAdaptor();
}

BusObject::~BusObject() { unregisterAdaptor(); }

std::vector<sdbus::ObjectPath> BusObject::Children() {
  return pathsOf(ports_.service.registry().childrenOf(handle_));
}

bool BusObject::ConformsTo(const std::string& className) {
  return ports_.service.registry().conformsTo(handle_, className);
}

std::map<std::string, sdbus::Variant> BusObject::Properties() {
  const auto properties = ports_.service.properties(handle_, senderTo(getObject()));
  if (!properties) throw errorOfProperty(kErrorNoDevice, "");
  return toBus(*properties);
}

void BusObject::SetProperty(sdbus::Result<>&& result, std::string name, sdbus::Variant value) {
  auto known = fromBus(value);
  if (!known) return result.returnError(errorOfProperty(kErrorBadArgument, name));
  const auto client = senderTo(getObject());
  WriteRequest request{client, name, std::move(result), errorOfProperty};
  const auto* dictionary = known->get<Dictionary>();
  const bool isProbe = dictionary != nullptr && dictionary->empty();
  // Not this object: it may be gone when the write is permitted.
  const auto write = [&service = ports_.service, object = handle_, client, name,
                      value = std::move(*known)](WriteRequests::Done done) {
    service.setProperty(object, name, value, client, std::move(done));
  };
  if (isProbe) return ports_.writes.takeUnchecked(std::move(request), write);
  if (name != property::kCalibration) request.taken = [&root = root_] { root.announceChange(); };
  // A monitor's place is written by a program that nobody watches.
  const auto asking = name == property::kMonitor ? Authority::Asking::Unwanted : Authority::Asking::Allowed;
  ports_.writes.take(std::move(request), asking, write);
}

std::string BusObject::ClassName() { return std::string(ports_.service.registry().classOf(handle_)); }

BusRoot::BusRoot(sdbus::IConnection& connection, const BusPorts& ports)
    : AdaptorInterfaces(connection, bus_name::kRootPath), ports_(ports) {
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
  return pathsOf(ports_.service.registry().instancesOf(className));
}

void BusRoot::Write(sdbus::Result<>&& result, std::string name,
                    std::map<std::string, sdbus::Variant> contents) {
  auto known = fromBus(contents);
  if (!known) return result.returnError(errorOfFile(kErrorBadArgument, name));
  ports_.writes.take({senderTo(getObject()), name, std::move(result), errorOfFile},
                     Authority::Asking::Allowed,
                     [&files = ports_.files, name, contents = std::move(*known)](WriteRequests::Done done) {
                       files.write(name, contents, std::move(done));
                     });
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
