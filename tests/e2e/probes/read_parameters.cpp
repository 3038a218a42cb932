// Reads every touchscreen of this machine once, over the same libusb provider and the same exchanges as the
// control panel, and prints one line for each: location, product, result of the exchange and the 293 bytes of
// its context, all in hexadecimal. Diagnostics of the exchange go to standard error.

#include <cstdio>
#include <string>
#include <thread>

#include "contract/ProductId.h"
#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform_build/BuildConstants.h"
#include "protocol/Exchange.h"
#include "providers/linux/usb/LibusbBus.h"

namespace {

using namespace touchpanel;

class SleepingClock final : public Clock {
 public:
  void sleep(std::chrono::milliseconds duration) override { std::this_thread::sleep_for(duration); }
};

class StandardError final : public Diagnostics {
 public:
  void line(std::string_view text) override {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
  }
};

int read(UsbDeviceInterface& device, std::uint16_t product, _DEVICT_CONTEXT& context, ExchangePorts ports) {
  switch (kindOf(product)) {
    case DeviceKind::Infrared:
      return getIrTucParam(device, context, ports);
    case DeviceKind::Optical:
      return getOptTucParam(device, context, ports);
    default:
      return 1;
  }
}

void show(UsbDeviceInterface& device, ExchangePorts ports) {
  std::uint32_t location = 0;
  std::uint16_t product = 0;
  _DEVICT_CONTEXT context{};
  if (device.open() != kSuccess || device.getLocationID(location) != kSuccess ||
      device.getDeviceProduct(product) != kSuccess) {
    std::fputs("a device cannot be opened\n", stderr);
    return;
  }
  const int result = read(device, product, context, ports);
  device.close();
  std::printf("%08x %04x %d ", location, product, result);
  for (std::uint8_t byte : imageOf(context)) std::printf("%02x", byte);
  std::puts("");
}

}  // namespace

int main() {
  SleepingClock clock;
  StandardError diagnostics;
  LibusbBus bus(TOUCH_VENDOR_ID);
  MasterPort master = 0;
  if (bus.masterPort(master) != kSuccess) return 1;
  UsbNotificationPort& port = bus.createNotificationPort(master);
  for (std::uint16_t productId : kProductIds) {
    std::optional<Dictionary> matching = bus.matchingDictionary("IOUSBDevice");
    if (!matching) return 1;
    matching->set("idVendor", std::int32_t{TOUCH_VENDOR_ID});
    matching->set("idProduct", std::int32_t{productId});
    UsbIterator* arrived = nullptr;
    if (bus.addMatchingNotification(port, UsbEvent::FirstMatch, *matching, {}, arrived) != kSuccess) return 1;
    while (UsbService service = arrived->next()) {
      UsbPlugIn plugIn = 0;
      UsbDeviceInterface* device = nullptr;
      if (bus.createPlugIn(service, plugIn) != kSuccess) continue;
      bus.releaseService(service);
      if (bus.queryDeviceInterface(plugIn, device) == kSuccess) show(*device, {clock, diagnostics});
      bus.destroyPlugIn(plugIn);
    }
  }
  return 0;
}
