#pragma once

#include <gmock/gmock.h>
#include <poll.h>

#include "contract/DriverProperties.h"
#include "providers/linux/usb/LibusbBus.h"
#include "support/MockUsbBus.h"

namespace touchpanel::testing {

inline constexpr std::uint16_t kVendor = 0x6666;

/// The real provider on a mock bus with a few touchscreens at hand, and the run loop's part played by hand.
class UsbOnMockBus : public ::testing::Test {
 protected:
  /// What a registration told, and when its callback was called.
  struct Watch {
    UsbIterator* iterator = nullptr;
    int calls = 0;
    std::vector<UsbService> services;
    void fetch(UsbIterator& from) {
      while (const auto service = from.next()) services.push_back(service);
    }
  };

  /// Starts libusb, on what is plugged in by now.
  LibusbBus& start() {
    usb_ = std::make_unique<LibusbBus>(kVendor);
    MasterPort master = 0;
    EXPECT_EQ(usb_->masterPort(master), kSuccess);
    port_ = &usb_->createNotificationPort(master);
    return *usb_;
  }
  LibusbBus& usb() { return *usb_; }
  UsbNotificationPort& port() { return *port_; }

  /// Asks for an event of a product, and fetches what is there already, which arms the notification.
  Watch& watch(UsbEvent event, std::uint16_t productId) { return watchOn(*port_, event, productId); }
  Watch& watchOn(UsbNotificationPort& port, UsbEvent event, std::uint16_t productId) {
    auto& made = *watches_.emplace_back(std::make_unique<Watch>());
    auto matching = usb_->matchingDictionary(class_name::kUsbDevice);
    matching->set("idVendor", std::int32_t{kVendor});
    matching->set("idProduct", std::int32_t{productId});
    const auto told = [&made](UsbIterator& iterator) {
      ++made.calls;
      made.fetch(iterator);
    };
    EXPECT_EQ(usb_->addMatchingNotification(port, event, *matching, told, made.iterator), kSuccess);
    made.fetch(*made.iterator);
    return made;
  }

  /// Waits until the source is readable, as a run loop does; false when that never happens.
  static bool becomesReadable(UsbNotificationPort& port, int milliseconds = 5000) {
    std::vector<pollfd> polled;
    for (const int descriptor : port.runLoopSource().descriptors()) polled.push_back({descriptor, POLLIN, 0});
    return ::poll(polled.data(), polled.size(), milliseconds) > 0;
  }
  /// Serves the source until `watched` has seen as many devices as that.
  static void performUntil(UsbNotificationPort& port, const Watch& watched, std::size_t services) {
    while (watched.services.size() < services && becomesReadable(port)) port.runLoopSource().perform();
    EXPECT_EQ(watched.services.size(), services);
  }
  void performUntil(const Watch& watched, std::size_t services) { performUntil(*port_, watched, services); }

  UsbDeviceInterface* interfaceFor(UsbService service) {
    UsbPlugIn plugIn = 0;
    EXPECT_EQ(usb_->createPlugIn(service, plugIn), kSuccess);
    EXPECT_EQ(usb_->releaseService(service), kSuccess);
    UsbDeviceInterface* device = nullptr;
    EXPECT_EQ(usb_->queryDeviceInterface(plugIn, device), kSuccess);
    usb_->destroyPlugIn(plugIn);
    return device;
  }
  /// An interface of the one device of that product.
  UsbDeviceInterface* onlyDevice(std::uint16_t productId) {
    const auto& found = watch(UsbEvent::FirstMatch, productId);
    EXPECT_EQ(found.services.size(), 1U);
    return found.services.empty() ? nullptr : interfaceFor(found.services.front());
  }

  firmware::Firmware infrared{firmware::exampleDevice(DeviceKind::Infrared, 1)};
  firmware::Firmware secondInfrared{firmware::exampleDevice(DeviceKind::Infrared, 2)};
  firmware::Firmware optical{firmware::exampleDevice(DeviceKind::Optical, 3)};
  MockUsbBus bus;

 private:
  std::unique_ptr<LibusbBus> usb_;
  UsbNotificationPort* port_ = nullptr;
  std::vector<std::unique_ptr<Watch>> watches_;
};

}  // namespace touchpanel::testing
