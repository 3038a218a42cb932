#pragma once

#include <memory>
#include <vector>

#include <gmock/gmock.h>
#include <poll.h>

#include "contract/DriverProperties.h"
#include "platform_build/BuildConstants.h"
#include "providers/linux/usb/LibusbBus.h"
#include "support/MockUsbBus.h"

namespace touchpanel::testing {

/// The real provider on a mock bus, and the run loop's part played by hand.
class LibusbOnMockBus {
 public:
  /// What a registration was called with.
  struct Watch {
    UsbIterator* iterator = nullptr;
    int calls = 0;
    std::vector<UsbService> services;
    void fetch(UsbIterator& from) {
      while (const auto service = from.next()) services.push_back(service);
    }
  };

  /// Starts libusb, on what is plugged in by now.
  void start() {
    usb = std::make_unique<LibusbBus>(TOUCH_VENDOR_ID);
    MasterPort master = 0;
    EXPECT_EQ(usb->masterPort(master), kSuccess);
    port = &usb->createNotificationPort(master);
  }
  /// Asks for an event of a product, and fetches what is there already, which arms the notification.
  Watch& watch(UsbEvent event, std::uint16_t productId) {
    auto& made = *watches_.emplace_back(std::make_unique<Watch>());
    const auto fetch = [&made](UsbIterator& iterator) {
      ++made.calls;
      made.fetch(iterator);
    };
    EXPECT_EQ(
        usb->addMatchingNotification(*port, event, {{"idVendor", TOUCH_VENDOR_ID}, {"idProduct", productId}},
                                     fetch, made.iterator),
        kSuccess);
    made.fetch(*made.iterator);
    return made;
  }
  /// Waits until the source is readable, as a run loop does; false when that never happens.
  bool becomesReadable(int milliseconds = 10000) {
    std::vector<pollfd> polled;
    for (const int descriptor : port->runLoopSource().descriptors())
      polled.push_back({descriptor, POLLIN, 0});
    return ::poll(polled.data(), polled.size(), milliseconds) > 0;
  }
  /// Serves the source until all watches together have seen that many more devices.
  void performUntil(std::size_t services) {
    while (servicesSeen() < services && becomesReadable()) port->runLoopSource().perform();
    EXPECT_EQ(servicesSeen(), services);
  }
  std::size_t servicesSeen() const {
    std::size_t seen = 0;
    for (const auto& each : watches_) seen += each->services.size();
    return seen;
  }

  UsbDeviceInterface* interfaceFor(UsbService service) {
    UsbPlugIn plugIn = 0;
    EXPECT_EQ(usb->createPlugIn(service, plugIn), kSuccess);
    EXPECT_EQ(usb->releaseService(service), kSuccess);
    UsbDeviceInterface* device = nullptr;
    EXPECT_EQ(usb->queryDeviceInterface(plugIn, device), kSuccess);
    usb->destroyPlugIn(plugIn);
    return device;
  }
  /// An interface of the one device of that product.
  UsbDeviceInterface* onlyDevice(std::uint16_t productId) {
    const auto& found = watch(UsbEvent::FirstMatch, productId);
    EXPECT_EQ(found.services.size(), 1U);
    return found.services.empty() ? nullptr : interfaceFor(found.services.front());
  }

  MockUsbBus bus;
  std::unique_ptr<LibusbBus> usb;
  UsbNotificationPort* port = nullptr;

 private:
  std::vector<std::unique_ptr<Watch>> watches_;
};

}  // namespace touchpanel::testing
