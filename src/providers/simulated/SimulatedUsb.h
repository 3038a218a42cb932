#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/Usb.h"
#include "providers/simulated/SimulatedTouchscreen.h"

namespace touchpanel::simulated {

/// One stay of a touchscreen on the bus, from plugging in to unplugging. Interfaces made during one stay are
/// dead in the next.
struct Attachment {
  SimulatedTouchscreen* touchscreen = nullptr;
  bool attached = true;
  const void* openedBy = nullptr;  ///< the interface that has it open
};

/// The USB bus of a simulated machine, behind the same ports as the real one.
class SimulatedUsb final : public UsbNotifications, public UsbServices {
 public:
  SimulatedUsb();
  ~SimulatedUsb() override;
  SimulatedUsb(const SimulatedUsb&) = delete;
  SimulatedUsb& operator=(const SimulatedUsb&) = delete;

  /// `touchscreen` must stay until it is detached. Notifications are queued and delivered by the run loop.
  void attach(SimulatedTouchscreen& touchscreen);
  void detach(SimulatedTouchscreen& touchscreen);

  /// Called before each control transfer; a test can unplug the device here, in the middle of an exchange.
  std::function<void(const DeviceRequest&)> beforeTransfer;

  Status masterPort(MasterPort& port) override;
  void releaseMasterPort(MasterPort port) override;
  std::optional<Dictionary> matchingDictionary(std::string_view className) override;
  UsbNotificationPort& createNotificationPort(MasterPort port) override;
  Status addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                 UsbCallback callback, UsbIterator*& iterator) override;

  Status createPlugIn(UsbService service, UsbPlugIn& plugIn) override;
  Status releaseService(UsbService service) override;
  Status queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) override;
  void destroyPlugIn(UsbPlugIn plugIn) override;
  UsbDeviceInterface* deviceInterface(UsbDeviceReference reference) override;

 private:
  class Interface;
  class NotificationPort;
  class Registration;

  UsbService serviceFor(const std::shared_ptr<Attachment>& attachment);
  void announce(UsbEvent event, const std::shared_ptr<Attachment>& attachment);

  std::vector<std::shared_ptr<Attachment>> attachments_;
  std::vector<std::unique_ptr<NotificationPort>> ports_;
  std::map<UsbService, std::shared_ptr<Attachment>> services_;
  std::map<UsbPlugIn, std::shared_ptr<Attachment>> plugIns_;
  std::map<UsbDeviceReference, std::unique_ptr<Interface>> interfaces_;
  std::uint32_t lastHandle_ = 0;
  UsbDeviceReference lastReference_ = 0;
};

}  // namespace touchpanel::simulated
