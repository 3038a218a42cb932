#include "discovery/DeviceOpening.h"

#include <chrono>

#include "platform/HexText.h"
#include "platform/Translatable.h"

namespace touchpanel {

namespace {
constexpr int kOpenAttempts = 50;
constexpr std::chrono::milliseconds kBetweenAttempts{500};
}  // namespace

UsbDeviceInterface* DeviceOpening::open(UsbService service) {
  const UsbPlugIn plugIn = plugInOf(service);
  if (plugIn == 0) return nullptr;
  UsbDeviceInterface* const device = interfaceOf(plugIn);
  if (device == nullptr) return nullptr;
  const Status status = openPatiently(*device);
  if (status == kSuccess) return device;
  giveUp(*device, status);
  return nullptr;
}

UsbPlugIn DeviceOpening::plugInOf(UsbService service) {
  UsbPlugIn plugIn = 0;
  ports_.usbServices.createPlugIn(service, plugIn);
  // Success is judged by the release: a service that can no longer be released is gone, and so is what was
  // made of it.
  const Status released = ports_.usbServices.releaseService(service);
  if (released == kSuccess && plugIn != 0) return plugIn;
  ports_.diagnostics.line("Unable to create a plug-in (" + hexText(released) + ")");
  return 0;
}

UsbDeviceInterface* DeviceOpening::interfaceOf(UsbPlugIn plugIn) {
  UsbDeviceInterface* device = nullptr;
  const Status status = ports_.usbServices.queryDeviceInterface(plugIn, device);
  ports_.process.devIntf = device;
  ports_.usbServices.destroyPlugIn(plugIn);
  if (status == kSuccess && device != nullptr) return device;
  ports_.diagnostics.line("couldn't create a device interface (" + hexText(status) + ")");
  return nullptr;
}

Status DeviceOpening::openPatiently(UsbDeviceInterface& device) {
  WaitScope wait(ports_.waitNotice, {TRANSLATABLE_TEXT("WaitNotice", "Opening a touchscreen...")});
  Status status = device.open();
  for (int attempt = 2; attempt <= kOpenAttempts && status != kSuccess; ++attempt) {
    wait.change(
        {TRANSLATABLE_COUNT("WaitNotice",
                            "The touchscreen cannot be opened yet, trying again (attempt %n of 50)..."),
         attempt});
    ports_.clock.sleep(kBetweenAttempts);
    status = device.open();
  }
  return status;
}

void DeviceOpening::giveUp(UsbDeviceInterface& device, Status status) {
  ports_.diagnostics.line("unable to open device: " + hexText(status));
  device.release();
  ports_.process.devIntf = nullptr;
  ports_.alerts.show("Error", "Unable to open device: " + hexText(status) + ".", "OK");
}

}  // namespace touchpanel
