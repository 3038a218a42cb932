#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Usb.h"

namespace touchpanel {

/// One stay of a device on a bus, from plugging in to unplugging. A bus derives its own from this.
struct UsbAttachment {
  void* device = nullptr;  ///< what the bus knows the device by
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
  bool attached = true;  ///< false once its leaving has been noticed
};

/// What a device interface is made of.
struct UsbInterfaceOrigin {
  std::shared_ptr<UsbAttachment> attachment;
  UsbDeviceReference reference = 0;
  std::function<void(UsbDeviceReference)> onRelease = {};  ///< destroys the interface; unset: never released
};

/// The part of a device interface that is the same on every bus. Interfaces made during one stay are dead in
/// the next.
class AttachedInterface : public UsbDeviceInterface {
 public:
  Status getDeviceVendor(std::uint16_t& vendorId) override;
  Status getDeviceProduct(std::uint16_t& productId) override;
  void release() override;
  UsbDeviceReference reference() const override { return origin_.reference; }

 protected:
  explicit AttachedInterface(UsbInterfaceOrigin origin) : origin_(std::move(origin)) {}
  const UsbAttachment& attachment() const { return *origin_.attachment; }

 private:
  UsbInterfaceOrigin origin_;
};

/// The bookkeeping behind the USB ports, for a bus that only says what arrives, what leaves and what an
/// interface does. Used from one thread.
///
/// Events wait in the notification ports until the run loop performs them. They are delivered in the order in
/// which they happened, whichever registration they belong to: a touchscreen that is plugged in again at once
/// must be seen to leave before it is seen to arrive. Handles and references are never used again.
class HotplugBus : public UsbNotifications, public UsbServices {
 public:
  HotplugBus(const HotplugBus&) = delete;
  HotplugBus& operator=(const HotplugBus&) = delete;

  Status masterPort(MasterPort& port) override;
  void releaseMasterPort(MasterPort) override {}
  std::optional<Dictionary> matchingDictionary(std::string_view className) override;
  UsbNotificationPort& createNotificationPort(MasterPort port) override;
  Status addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                 UsbCallback callback, UsbIterator*& iterator) override;

  /// Fails with kErrorNoDevice when the device has left since it was handed out.
  Status createPlugIn(UsbService service, UsbPlugIn& plugIn) override;
  Status releaseService(UsbService service) override;
  Status queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) override;
  void destroyPlugIn(UsbPlugIn plugIn) override { plugIns_.erase(plugIn); }
  UsbDeviceInterface* deviceInterface(UsbDeviceReference reference) override;

 protected:
  HotplugBus();
  ~HotplugBus() override;

  void arrived(std::shared_ptr<UsbAttachment> attachment);
  /// Nothing happens when `device` is not attached.
  void left(const void* device);
  /// Makes the source of every port readable. Allocates nothing and does not fail.
  void wake();
  /// Gives up everything that holds a device, in use or not.
  void clear();
  /// Makes an interface of `attachment` and keeps it until its release.
  UsbDeviceInterface& addInterface(std::shared_ptr<UsbAttachment> attachment);

 private:
  class NotificationPort;
  class Registration;

  virtual std::shared_ptr<UsbDeviceInterface> makeInterface(UsbInterfaceOrigin origin) = 0;
  /// Calls arrived() and left() for what is pending on the bus itself, without waiting.
  virtual void pump() {}
  /// What is readable when pump() has something to do.
  virtual std::vector<int> descriptors() const { return {}; }
  void announce(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment);

  std::vector<std::shared_ptr<UsbAttachment>> attachments_;
  std::vector<std::unique_ptr<NotificationPort>> ports_;
  std::map<UsbService, std::shared_ptr<UsbAttachment>> services_;
  std::map<UsbPlugIn, std::shared_ptr<UsbAttachment>> plugIns_;
  std::map<UsbDeviceReference, std::shared_ptr<UsbDeviceInterface>> interfaces_;
  std::uint32_t lastHandle_ = 0;
  UsbDeviceReference lastReference_ = 0;
};

}  // namespace touchpanel
