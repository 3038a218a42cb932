#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/RunLoop.h"
#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel {

/// One control transfer on the default control endpoint, field by field as it goes over the bus.
struct DeviceRequest {
  std::uint8_t bmRequestType = 0;
  std::uint8_t bRequest = 0;
  std::uint16_t wValue = 0;
  std::uint16_t wIndex = 0;
  std::uint16_t wLength = 0;  ///< bytes to move
  std::uint8_t* pData =
      nullptr;                 ///< at least wLength bytes, owned by the caller; read or written by direction
  std::uint32_t wLenDone = 0;  ///< set by the provider to the bytes moved
};

/// An opaque 32-bit reference to a USB device interface, as a device entry stores it; 0 is none.
using UsbDeviceReference = std::int32_t;

/// The operations on one USB device. Each returns 0 for success.
class UsbDeviceInterface {
 public:
  virtual ~UsbDeviceInterface() = default;

  /// Opens the device for control transfers, exclusively between processes. Does not wait:
  /// kErrorExclusiveAccess while another process has it open, kErrorNoDevice when it is unplugged,
  /// kErrorNotPermitted when the device node may not be opened.
  virtual Status open() = 0;
  virtual Status close() = 0;
  /// Blocks until the transfer is done, for at most the platform's time-out. kErrorNotOpen, kErrorNoDevice,
  /// kErrorStalled, kErrorTimeout or kErrorInputOutput on failure.
  virtual Status deviceRequest(DeviceRequest& request) = 0;
  /// The active configuration's number; 0 while the device is not configured.
  virtual Status getConfiguration(std::uint8_t& configuration) = 0;
  /// Where the device is plugged in; the same value that its driver instance publishes as "LocationID".
  virtual Status getLocationID(std::uint32_t& locationId) = 0;
  virtual Status getDeviceVendor(std::uint16_t& vendorId) = 0;
  virtual Status getDeviceProduct(std::uint16_t& productId) = 0;
  /// Gives the interface up: it and its reference are invalid afterwards.
  virtual void release() = 0;
  virtual UsbDeviceReference reference() const = 0;
};

using UsbService = std::uint32_t;  ///< a matched USB device; 0 is none
using UsbPlugIn = std::uint32_t;   ///< what a device interface is asked of; 0 is none
using MasterPort = std::uint32_t;  ///< 0 is none

/// Services that matched or terminated since the last call. Running it out (next() returning 0) arms the
/// notification that it belongs to.
class UsbIterator {
 public:
  virtual ~UsbIterator() = default;
  virtual UsbService next() = 0;
};

enum class UsbEvent { FirstMatch, Terminate };
using UsbCallback = std::function<void(UsbIterator&)>;

/// A channel on which notifications arrive. Owned by the provider, for the process's life.
class UsbNotificationPort {
 public:
  virtual ~UsbNotificationPort() = default;
  /// Serves this port's notifications once it is in a run loop.
  virtual RunLoopSource& runLoopSource() = 0;
};

/// Finds USB devices as they come and go.
class UsbNotifications {
 public:
  virtual ~UsbNotifications() = default;

  virtual Status masterPort(MasterPort& port) = 0;
  virtual void releaseMasterPort(MasterPort port) = 0;
  /// A matching dictionary for `className`; nothing when it cannot be made.
  virtual std::optional<Dictionary> matchingDictionary(std::string_view className) = 0;
  virtual UsbNotificationPort& createNotificationPort(MasterPort port) = 0;
  /// Asks for `event` of devices whose "idVendor" and "idProduct" equal those in `matching`. On success
  /// `iterator` points to the provider's iterator of that registration, which holds the devices already there
  /// for FirstMatch. `callback` is called from the run loop only, never from inside another call of a port.
  virtual Status addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                         UsbCallback callback, UsbIterator*& iterator) = 0;
};

/// From a matched service to an interface one can talk through.
class UsbServices {
 public:
  virtual ~UsbServices() = default;

  virtual Status createPlugIn(UsbService service, UsbPlugIn& plugIn) = 0;
  virtual Status releaseService(UsbService service) = 0;
  /// Sets `device` to an interface owned by the provider until its release(); null when there is none.
  virtual Status queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) = 0;
  virtual void destroyPlugIn(UsbPlugIn plugIn) = 0;
  /// The interface behind a stored reference; null when it was released or never existed.
  virtual UsbDeviceInterface* deviceInterface(UsbDeviceReference reference) = 0;
};

}  // namespace touchpanel
