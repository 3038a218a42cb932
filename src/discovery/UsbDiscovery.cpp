#include "discovery/UsbDiscovery.h"

#include <chrono>

#include "contract/DriverProperties.h"
#include "contract/ProductId.h"
#include "discovery/DeviceList.h"
#include "discovery/Pairing.h"
#include "platform/HexText.h"
#include "platform/Translatable.h"
#include "platform_build/BuildConstants.h"
#include "protocol/Exchange.h"

namespace touchpanel {

namespace {

constexpr char kIdVendor[] = "idVendor";
constexpr char kIdProduct[] = "idProduct";
constexpr std::chrono::milliseconds kBeforePairing{500};
constexpr std::chrono::milliseconds kBeforeRegisteringAgain{100};
constexpr std::chrono::milliseconds kBeforeRemoval{200};
/// The system configures a device as it announces it, or never (one that is not authorised). Registering again
/// sees nothing sooner, and costs half a second for each touchscreen that is listed already.
constexpr int kMaximumRepetitions = 5;

}  // namespace

UsbDiscovery::UsbDiscovery(const DiscoveryPorts& ports, DeviceListOwner& owner)
    : ports_(ports),
      owner_(owner),
      opening_(ports_),
      configLoading_(ports.registry, ports.files, ports.paths, ports.diagnostics, owner) {}

bool UsbDiscovery::registerForUSBNotifications() {
  ++nesting_;
  const bool registered = registerAllProducts();
  if (--nesting_ == 0) repetitions_ = 0;
  return registered;
}

bool UsbDiscovery::registerAllProducts() {
  auto& usb = ports_.usbNotifications;
  MasterPort masterPort = 0;
  const Status status = usb.masterPort(masterPort);
  if (status != kSuccess || masterPort == 0) {
    ports_.diagnostics.line("ERR: Couldn't create a master I/O Kit port(" + hexText(status) + ")");
    return false;
  }
  auto matching = usb.matchingDictionary(class_name::kUsbDevice);
  if (!matching) {
    ports_.diagnostics.line("Can't create a USB matching dictionary");
    usb.releaseMasterPort(masterPort);
    return false;
  }
  matching->set(kIdVendor, std::int32_t{TOUCH_VENDOR_ID});

  auto& port = usb.createNotificationPort(masterPort);
  ports_.process.runLoopSource = &port.runLoopSource();
  ports_.runLoop.addSource(port.runLoopSource());
  for (const auto productId : kProductIds)
    if (!registerProduct(port, *matching, productId)) return false;
  usb.releaseMasterPort(masterPort);
  return true;
}

bool UsbDiscovery::registerProduct(UsbNotificationPort& port, Dictionary& matching, std::uint16_t productId) {
  matching.set(kIdProduct, std::int32_t{productId});
  UsbIterator* arrivals = nullptr;
  UsbIterator* departures = nullptr;
  auto& usb = ports_.usbNotifications;
  if (usb.addMatchingNotification(
          port, UsbEvent::FirstMatch, matching, [this](UsbIterator& iterator) { DeviceAdded(iterator); },
          arrivals) != kSuccess)
    return false;
  if (usb.addMatchingNotification(
          port, UsbEvent::Terminate, matching, [this](UsbIterator& iterator) { DeviceRemoved(iterator); },
          departures) != kSuccess)
    return false;
  // Handles what is there already, and arms both notifications by running their iterators out.
  DeviceAdded(*arrivals);
  if (ports_.application.isEnding()) return false;
  DeviceRemoved(*departures);
  return !ports_.application.isEnding();
}

void UsbDiscovery::DeviceAdded(UsbIterator& iterator) {
  _DEVICT_CONTEXT context{};  // one for all devices of this call
  if (ports_.registry.instancesOf(class_name::kTouchDriver).empty()) {
    ports_.alerts.show("Warning", "Not found touch device.", "OK",
                       adviceOnDriver(ports_.registry.availability()));
    ports_.application.terminate();
    return;
  }
  while (const UsbService service = iterator.next()) {
    if (addDevice(service, context) == Arrival::NotConfigured && registerAgain()) return;
    if (ports_.application.isEnding()) return;
  }
}

UsbDiscovery::Arrival UsbDiscovery::addDevice(UsbService service, _DEVICT_CONTEXT& context) {
  owner_.arriving();
  Status status = kSuccess;
  UsbDeviceInterface* const device = opening_.open(service, status);
  if (device == nullptr) {
    owner_.notListed({.why = NotListed::Why::CannotBeOpened, .status = status});
    return Arrival::Handled;
  }
  std::uint8_t configuration = 0;
  if (device->getConfiguration(configuration) == kSuccess && configuration == 0) {
    device->close();
    device->release();
    ports_.process.devIntf = nullptr;
    return Arrival::NotConfigured;
  }
  listDevice(*device, context);
  device->close();  // but not released: the entry refers to it
  return Arrival::Handled;
}

void UsbDiscovery::listDevice(UsbDeviceInterface& device, _DEVICT_CONTEXT& context) {
  std::uint32_t locationId = 0;
  device.getLocationID(locationId);
  // Location 0 is served by no driver instance, which keeps a listed device from being added twice.
  if (CheckDevice(owner_.deviceListArray(), locationId)) locationId = 0;
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
  device.getDeviceVendor(vendorId);
  device.getDeviceProduct(productId);
  const RegistryObject handle = driverInstanceAt(locationId);
  if (handle == 0) {
    if (locationId == 0) return;
    const Status service = ports_.registry.availability();
    owner_.notListed(
        {.why = service == kSuccess ? NotListed::Why::NoDriverInstance : NotListed::Why::ServiceDown,
         .status = service});
    return;
  }
  ExchangeOutcome outcome;
  if (!readParameters(device, productId, context, outcome)) {
    ports_.alerts.show("Error", "To get the device parameters failed, please try again.", "OK",
                       adviceOnReading());
    owner_.notListed({.why = NotListed::Why::NotRead});
    return;
  }
  const auto listed = owner_.deviceListArray().size();
  configLoading_.LoadDeviceConfig(context, device, handle, locationId);
  if (owner_.deviceListArray().size() > listed) noteUnread(outcome.failed);
}

void UsbDiscovery::noteUnread(ContentSet failed) {
  if (failed.isEmpty()) return;
  owner_.deviceListArray().back()->set(entry_key::kUnreadBlocks, static_cast<std::int32_t>(failed.bits()));
  owner_.readInPart(failed);
}

RegistryObject UsbDiscovery::driverInstanceAt(std::uint32_t locationId) {
  const WaitScope wait(ports_.waitNotice,
                       {TRANSLATABLE_TEXT("WaitNotice", "Waiting for the touchscreen's driver...")});
  ports_.clock.sleep(kBeforePairing);
  // Asked for anew: the wait was for an instance that was not published yet.
  const auto instances = ports_.registry.instancesOf(class_name::kTouchDriver);
  RegistryObject pointingDevice = 0;
  return compareID(ports_.registry, instances, locationId, pointingDevice);
}

bool UsbDiscovery::readParameters(UsbDeviceInterface& device, std::uint16_t productId,
                                  _DEVICT_CONTEXT& context, ExchangeOutcome& outcome) {
  const auto kind = kindOf(productId);
  if (kind == DeviceKind::ConfigurationOnly) return true;
  const WaitScope wait(ports_.waitNotice,
                       {TRANSLATABLE_TEXT("WaitNotice", "Reading the touchscreen's parameters...")});
  const ExchangePorts exchange{ports_.clock, ports_.diagnostics};
  switch (kind) {
    case DeviceKind::Optical:
      return getOptTucParam(device, context, exchange, &outcome) != 0;
    case DeviceKind::Infrared:
      return getIrTucParam(device, context, exchange, &outcome) != 0;
    default:
      return false;
  }
}

bool UsbDiscovery::registerAgain() {
  if (repetitions_ == kMaximumRepetitions) {
    ports_.diagnostics.line("a device stays without a configuration and is not listed");
    owner_.notListed({.why = NotListed::Why::NotConfigured});
    return false;
  }
  ports_.runLoop.removeSource(*ports_.process.runLoopSource);
  {
    const WaitScope wait(ports_.waitNotice,
                         {TRANSLATABLE_TEXT("WaitNotice", "A touchscreen is getting ready...")});
    ports_.clock.sleep(kBeforeRegisteringAgain);
  }
  ++repetitions_;
  registerForUSBNotifications();
  return true;
}

void UsbDiscovery::DeviceRemoved(UsbIterator& iterator) {
  while (const UsbService service = iterator.next()) {
    {
      const WaitScope wait(ports_.waitNotice,
                           {TRANSLATABLE_TEXT("WaitNotice", "A touchscreen was unplugged...")});
      ports_.clock.sleep(kBeforeRemoval);
    }
    RemoveDeviceFromArray(owner_, ports_.registry, ports_.application);
    ports_.usbServices.releaseService(service);
    if (ports_.application.isEnding()) return;
  }
}

}  // namespace touchpanel
