#include <atomic>
#include <map>
#include <thread>
#include <utility>

#include <poll.h>

#include "contract/ProductId.h"
#include "providers/linux/usb/LibusbBus.h"
#include "support/MockUsbBus.h"
#include "support/contracts/UsbContract.h"

namespace touchpanel::testing {
namespace {

/// The three touchscreens in front of the real libusb. A port of its own tells when an event has come through
/// libusb, from where it reaches every port at once.
class LibusbWorld final : public UsbWorld {
 public:
  LibusbWorld() {
    for (const auto& [productId, socket] : sockets_)
      for (const auto event : {UsbEvent::FirstMatch, UsbEvent::Terminate}) watch(event, productId);
  }
  UsbNotifications& notifications() override { return usb_; }
  UsbServices& services() override { return usb_; }

  void plugIn(std::uint16_t productId) override {
    auto& socket = sockets_.at(productId);
    socket.firmware.powerCycle();
    bus_.plugIn(socket.name, socket.firmware);
    ++expectedEvents_;
    awaitEvents();
  }
  void unplug(std::uint16_t productId) override {
    ++expectedEvents_;  // first: the transfer that is running may end before the rest of this does
    bus_.unplug(sockets_.at(productId).name);
    awaitEvents();
  }
  std::uint32_t locationOf(std::uint16_t productId) override { return sockets_.at(productId).location; }
  void serve(RunLoopSource& source) override {
    awaitEvents();
    source.perform();
  }
  void beforeNextTransfer(std::uint16_t productId, std::function<void()> action) override {
    bus_.setBeforeTransfer([this, wanted = sockets_.at(productId).name, done = false,
                            action = std::move(action)](const std::string& socket) mutable {
      if (std::exchange(done, done || socket == wanted) || socket != wanted) return;
      action();
    });
  }

 private:
  struct Socket {
    std::string name;
    std::uint32_t location;
    firmware::Firmware firmware;
  };

  void watch(UsbEvent event, std::uint16_t productId) {
    UsbIterator* iterator = nullptr;
    usb_.addMatchingNotification(
        port_, event, {{"idVendor", TOUCH_VENDOR_ID}, {"idProduct", productId}},
        [this](UsbIterator& fired) {
          while (const auto service = fired.next()) {
            usb_.releaseService(service);
            ++seenEvents_;
          }
        },
        iterator);
    while (iterator->next() != 0) {
    }
  }
  /// Not from within a transfer, which runs on another thread and keeps libusb busy.
  void awaitEvents() {
    constexpr int kLongestWaitMs = 10000;
    if (std::this_thread::get_id() != mainThread_) return;
    auto& source = port_.runLoopSource();
    while (seenEvents_ < expectedEvents_ && becomesReadable(source, kLongestWaitMs)) source.perform();
    EXPECT_EQ(seenEvents_, expectedEvents_);
  }
  static bool becomesReadable(RunLoopSource& source, int milliseconds) {
    std::vector<pollfd> polled;
    for (const int descriptor : source.descriptors()) polled.push_back({descriptor, POLLIN, 0});
    return ::poll(polled.data(), polled.size(), milliseconds) > 0;
  }
  static Socket socketOf(const char* name, std::uint32_t location, DeviceKind kind) {
    return {name, location, firmware::Firmware(firmware::exampleDevice(kind, location))};
  }

  std::map<std::uint16_t, Socket> sockets_ = {
      {kProductConfigurationOnly, socketOf("1-1", 0x01100000, DeviceKind::ConfigurationOnly)},
      {kProductOptical, socketOf("1-2", 0x01200000, DeviceKind::Optical)},
      {kProductInfrared0080, socketOf("1-3", 0x01300000, DeviceKind::Infrared)}};
  MockUsbBus bus_;
  LibusbBus usb_{TOUCH_VENDOR_ID};
  UsbNotificationPort& port_ = usb_.createNotificationPort(1);
  const std::thread::id mainThread_ = std::this_thread::get_id();
  std::atomic<int> expectedEvents_ = 0;
  int seenEvents_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Libusb, UsbContract,
                         ::testing::Values(UsbProvider{[] { return std::make_unique<LibusbWorld>(); }}));

}  // namespace
}  // namespace touchpanel::testing
