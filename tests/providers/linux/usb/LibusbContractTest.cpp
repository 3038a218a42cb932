#include <atomic>
#include <map>
#include <thread>
#include <utility>

#include "LibusbOnMockBus.h"
#include "contract/ProductId.h"
#include "support/contracts/UsbContract.h"

namespace touchpanel::testing {
namespace {

/// The three touchscreens in front of the real libusb. A port of its own shows when an event has come through
/// libusb, from where it reaches every port at once.
class LibusbWorld final : public UsbWorld {
 public:
  LibusbWorld() {
    machine_.start();
    for (const auto& [productId, socket] : sockets_)
      for (const auto event : {UsbEvent::FirstMatch, UsbEvent::Terminate}) machine_.watch(event, productId);
  }
  UsbNotifications& notifications() override { return *machine_.usb; }
  UsbServices& services() override { return *machine_.usb; }

  void plugIn(std::uint16_t productId) override {
    auto& socket = sockets_.at(productId);
    machine_.bus.plugIn(socket.name, socket.firmware);
    ++expectedEvents_;
    awaitEvents();
  }
  void unplug(std::uint16_t productId) override {
    ++expectedEvents_;  // first: the transfer that is running may end before the rest of this does
    machine_.bus.unplug(sockets_.at(productId).name);
    awaitEvents();
  }
  std::uint32_t locationOf(std::uint16_t productId) override { return sockets_.at(productId).location; }
  void serve(RunLoopSource& source) override {
    awaitEvents();
    source.perform();
  }
  void beforeNextTransfer(std::uint16_t productId, std::function<void()> action) override {
    machine_.bus.setBeforeTransfer([wanted = sockets_.at(productId).name, done = false,
                                    action = std::move(action)](const std::string& socket) mutable {
      if (socket == wanted && !std::exchange(done, true)) action();
    });
  }

 private:
  struct Socket {
    std::string name;
    std::uint32_t location;
    firmware::Firmware firmware;
  };

  /// Not from within a transfer, which runs on another thread and keeps libusb busy.
  void awaitEvents() {
    if (std::this_thread::get_id() == mainThread_) machine_.performUntil(expectedEvents_);
  }
  static Socket socketOf(const char* name, std::uint32_t location, DeviceKind kind) {
    return {name, location, firmware::Firmware(firmware::exampleDevice(kind, location))};
  }

  std::map<std::uint16_t, Socket> sockets_ = {
      {kProductConfigurationOnly, socketOf("1-1", 0x01100000, DeviceKind::ConfigurationOnly)},
      {kProductOptical, socketOf("1-2", 0x01200000, DeviceKind::Optical)},
      {kProductInfrared0080, socketOf("1-3", 0x01300000, DeviceKind::Infrared)}};
  LibusbOnMockBus machine_;
  const std::thread::id mainThread_ = std::this_thread::get_id();
  std::atomic<std::size_t> expectedEvents_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Libusb, UsbContract,
                         ::testing::Values(UsbProvider{[] { return std::make_unique<LibusbWorld>(); }}));

}  // namespace
}  // namespace touchpanel::testing
