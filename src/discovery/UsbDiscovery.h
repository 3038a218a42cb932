#pragma once

#include "discovery/DeviceConfigLoading.h"
#include "discovery/DeviceList.h"
#include "discovery/DeviceOpening.h"
#include "discovery/DiscoveryPorts.h"

namespace touchpanel {

/// Finds touchscreens as they arrive and leave, and keeps the owner's device list.
///
/// Everything happens on the main thread and blocks it: per device for half a second, the time its
/// parameters take and 25 s at the worst to open it. An application that is ended on the way, by the user or
/// by discovery itself, stops everything at once.
class UsbDiscovery {
 public:
  UsbDiscovery(const DiscoveryPorts& ports, DeviceListOwner& owner);
  UsbDiscovery(const UsbDiscovery&) = delete;
  UsbDiscovery& operator=(const UsbDiscovery&) = delete;

  /// Asks for arrivals and departures of every supported product, and handles the devices already attached
  /// before it returns. False when it could not be completed.
  bool registerForUSBNotifications();

  /// Handles every new device that `iterator` yields. Without any driver instance an alert is shown and the
  /// application ends.
  void DeviceAdded(UsbIterator& iterator);
  /// Handles every terminated service that `iterator` yields.
  void DeviceRemoved(UsbIterator& iterator);

  DeviceConfigLoading& configLoading() { return configLoading_; }

 private:
  enum class Arrival { Handled, NotConfigured };

  bool registerAllProducts();
  bool registerProduct(UsbNotificationPort& port, Dictionary& matching, std::uint16_t productId);
  Arrival addDevice(UsbService service, _DEVICT_CONTEXT& context);
  void listDevice(UsbDeviceInterface& device, _DEVICT_CONTEXT& context);
  bool readParameters(UsbDeviceInterface& device, std::uint16_t productId, _DEVICT_CONTEXT& context,
                      ExchangeOutcome& outcome);
  RegistryObject driverInstanceAt(std::uint32_t locationId);
  bool registerAgain();
  /// What could not be read of the touchscreen listed last.
  void noteUnread(ContentSet failed);

  const DiscoveryPorts ports_;
  DeviceListOwner& owner_;
  DeviceOpening opening_;
  DeviceConfigLoading configLoading_;
  int nesting_ = 0;      ///< registrations that are running inside one another
  int repetitions_ = 0;  ///< registrations repeated since the outermost began
};

}  // namespace touchpanel
