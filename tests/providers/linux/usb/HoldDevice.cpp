// Opens the only device of a product and holds it until standard input ends.
// Prints the status of opening as eight hexadecimal digits on one line.
#include <cstdio>
#include <cstdlib>

#include "contract/DriverProperties.h"
#include "providers/linux/usb/LibusbBus.h"

int main(int count, char** arguments) {
  using namespace touchpanel;
  if (count != 3) return 2;
  LibusbBus usb(static_cast<std::uint16_t>(std::strtol(arguments[1], nullptr, 16)));
  auto& port = usb.createNotificationPort(1);
  auto matching = usb.matchingDictionary(class_name::kUsbDevice);
  matching->set("idVendor", static_cast<std::int32_t>(std::strtol(arguments[1], nullptr, 16)));
  matching->set("idProduct", static_cast<std::int32_t>(std::strtol(arguments[2], nullptr, 16)));
  UsbIterator* iterator = nullptr;
  usb.addMatchingNotification(
      port, UsbEvent::FirstMatch, *matching, [](UsbIterator&) {}, iterator);
  UsbPlugIn plugIn = 0;
  UsbDeviceInterface* device = nullptr;
  usb.createPlugIn(iterator->next(), plugIn);
  if (usb.queryDeviceInterface(plugIn, device) != kSuccess) return 3;
  std::printf("%08x\n", static_cast<unsigned>(device->open()));
  std::fflush(stdout);
  while (std::getchar() != EOF) continue;
  return 0;
}
