#include <array>
#include <map>

#include <poll.h>

#include "protocol/ProductId.h"
#include "providers/linux/usb/LibusbBus.h"
#include "support/MockUsbBus.h"
#include "support/contracts/UsbContract.h"

namespace touchpanel::testing {
namespace {

/// The three touchscreens in front of the real libusb.
class LibusbWorld final : public UsbWorld {
 public:
  UsbNotifications& notifications() override { return usb(); }
  UsbServices& services() override { return usb(); }

  void plugIn(std::uint16_t productId) override {
    auto& socket = sockets_.at(productId);
    socket.firmware.powerCycle();
    bus_.plugIn(socket.name, socket.firmware);
  }
  void unplug(std::uint16_t productId) override { bus_.unplug(sockets_.at(productId).name); }
  std::uint32_t locationOf(std::uint16_t productId) override { return sockets_.at(productId).location; }
  void serve(RunLoopSource& source) override {
    // Quiet for this long means that everything was told: libusb's own thread takes microseconds.
    constexpr int kQuietMs = 50;
    while (becomesReadable(source, kQuietMs)) source.perform();
  }
  void beforeNextTransfer(std::uint16_t productId, std::function<void()> action) override {
    bus_.setBeforeTransfer([this, wanted = sockets_.at(productId).name, done = false,
                            action = std::move(action)](const std::string& socket) mutable {
      if (done || socket != wanted) return;
      done = true;
      action();
    });
  }

 private:
  struct Socket {
    std::string name;
    std::uint32_t location;
    firmware::Firmware firmware;
  };

  /// Started at the first use, so that devices can be there before.
  LibusbBus& usb() {
    if (!usb_) usb_ = std::make_unique<LibusbBus>(std::uint16_t{0x6666});
    return *usb_;
  }
  static bool becomesReadable(RunLoopSource& source, int milliseconds) {
    std::vector<pollfd> polled;
    for (const int descriptor : source.descriptors()) polled.push_back({descriptor, POLLIN, 0});
    return ::poll(polled.data(), polled.size(), milliseconds) > 0;
  }

  std::map<std::uint16_t, Socket> sockets_ = [] {
    std::map<std::uint16_t, Socket> made;
    using firmware::exampleDevice;
    using firmware::Firmware;
    made.insert({kProductConfigurationOnly,
                 {"1-1", 0x01100000, Firmware(exampleDevice(DeviceKind::ConfigurationOnly, 1))}});
    made.insert({kProductOptical, {"1-2", 0x01200000, Firmware(exampleDevice(DeviceKind::Optical, 2))}});
    made.insert(
        {kProductInfrared0080, {"1-3", 0x01300000, Firmware(exampleDevice(DeviceKind::Infrared, 3))}});
    return made;
  }();
  MockUsbBus bus_;
  std::unique_ptr<LibusbBus> usb_;
};

INSTANTIATE_TEST_SUITE_P(Libusb, UsbContract,
                         ::testing::Values(UsbProvider{[] { return std::make_unique<LibusbWorld>(); }}));

}  // namespace
}  // namespace touchpanel::testing
