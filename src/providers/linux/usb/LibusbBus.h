#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "platform/LibraryInUse.h"
#include "platform/Usb.h"
#include "providers/linux/usb/LibusbDeviceInterface.h"
#include "providers/linux/usb/LibusbNotificationPort.h"

namespace touchpanel {

LibraryInUse libusbInUse();

/// The machine's USB bus through libusb 1.0, for devices of one vendor.
///
/// libusb calls its hot-plug callback from wherever it handles events, which includes the inside of a
/// synchronous transfer. The callback therefore only queues:
///
///     libusb callback ──► queue_ ──► takeIn(), outside transfers ──► iterators ──► perform() ──►
///     callbacks
///
/// Used from one thread. When libusb cannot be started or knows no hot-plugging, masterPort() fails and
/// nothing is ever found.
class LibusbBus final : public UsbNotifications, public UsbServices {
 public:
  explicit LibusbBus(std::uint16_t vendorId);
  ~LibusbBus() override;
  LibusbBus(const LibusbBus&) = delete;
  LibusbBus& operator=(const LibusbBus&) = delete;

  Status masterPort(MasterPort& port) override;
  void releaseMasterPort(MasterPort port) override;
  std::optional<Dictionary> matchingDictionary(std::string_view className) override;
  UsbNotificationPort& createNotificationPort(MasterPort port) override;
  Status addMatchingNotification(UsbNotificationPort& port, UsbEvent event, Dictionary matching,
                                 UsbCallback callback, UsbIterator*& iterator) override;

  /// Fails with kErrorNoDevice when the device has left since it was handed out.
  Status createPlugIn(UsbService service, UsbPlugIn& plugIn) override;
  Status releaseService(UsbService service) override;
  Status queryDeviceInterface(UsbPlugIn plugIn, UsbDeviceInterface*& device) override;
  void destroyPlugIn(UsbPlugIn plugIn) override;
  UsbDeviceInterface* deviceInterface(UsbDeviceReference reference) override;

 private:
  struct HotplugEvent {
    UsbEvent event;
    LibusbDevice device;
  };

  static int LIBUSB_CALL hotplug(libusb_context* context, libusb_device* device, libusb_hotplug_event event,
                                 void* bus);
  Status start(std::uint16_t vendorId);
  /// Has libusb handle what is pending, without waiting, and takes in what its callback queued.
  void pump();
  void takeIn();
  void arrived(LibusbDevice device);
  void left(libusb_device* device);
  void tellPorts(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment);
  std::vector<int> libusbDescriptors() const;
  UsbService serviceFor(const std::shared_ptr<UsbAttachment>& attachment);

  libusb_context* context_ = nullptr;
  Status started_ = kErrorGeneral;
  std::vector<HotplugEvent> queue_;  ///< what libusb's callback told, in order
  std::vector<std::shared_ptr<UsbAttachment>> attachments_;
  std::vector<std::unique_ptr<LibusbNotificationPort>> ports_;
  std::map<UsbService, std::shared_ptr<UsbAttachment>> services_;
  std::map<UsbPlugIn, std::shared_ptr<UsbAttachment>> plugIns_;
  std::map<UsbDeviceReference, std::unique_ptr<LibusbDeviceInterface>> interfaces_;
  std::uint32_t lastHandle_ = 0;
  UsbDeviceReference lastReference_ = 0;
};

}  // namespace touchpanel
