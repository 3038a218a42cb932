#include "discovery/DeviceOpening.h"

#include <chrono>
#include <string>
#include <utility>

#include "discovery/NotListed.h"
#include "discovery/WriteOutcome.h"
#include "platform/HexText.h"
#include "platform/Translatable.h"

namespace touchpanel {

namespace {
constexpr int kOpenAttempts = 50;
constexpr std::chrono::milliseconds kBetweenAttempts{500};
}  // namespace

UsbDeviceInterface* DeviceOpening::open(UsbService service, Status& status) {
  const UsbPlugIn plugIn = plugInOf(service, status);
  if (plugIn == 0) return nullptr;
  UsbDeviceInterface* const device = interfaceOf(plugIn, status);
  if (device == nullptr) return nullptr;
  status = openPatiently(*device);
  if (status == kSuccess) return device;
  giveUp(*device, status);
  return nullptr;
}

UsbPlugIn DeviceOpening::plugInOf(UsbService service, Status& status) {
  UsbPlugIn plugIn = 0;
  ports_.usbServices.createPlugIn(service, plugIn);
  // Success is judged by the release: a service that can no longer be released is gone, and so is what was
  // made of it.
  status = ports_.usbServices.releaseService(service);
  if (status == kSuccess && plugIn != 0) return plugIn;
  ports_.diagnostics.line("Unable to create a plug-in (" + hexText(status) + ")");
  return 0;
}

UsbDeviceInterface* DeviceOpening::interfaceOf(UsbPlugIn plugIn, Status& status) {
  UsbDeviceInterface* device = nullptr;
  status = ports_.usbServices.queryDeviceInterface(plugIn, device);
  ports_.process.devIntf = device;
  ports_.usbServices.destroyPlugIn(plugIn);
  if (status == kSuccess && device != nullptr) return device;
  ports_.diagnostics.line("couldn't create a device interface (" + hexText(status) + ")");
  return nullptr;
}

Status DeviceOpening::openPatiently(UsbDeviceInterface& device) {
  WaitScope wait(ports_.waitNotice, {TRANSLATABLE_TEXT("WaitNotice", "Opening a touchscreen...")});
  Status status = device.open();
  Status printed = kSuccess;
  for (int attempt = 2; attempt <= kOpenAttempts && status != kSuccess; ++attempt) {
    if (status == kErrorNoDevice) break;  // it comes back as another device
    const auto reason = reasonOfDevice(status);
    if (std::exchange(printed, status) != status)
      ports_.diagnostics.line("a touchscreen cannot be opened yet: " + std::string(reason) + " (" +
                              hexText(status) + ")");
    wait.change(
        {TRANSLATABLE_COUNT("WaitNotice",
                            "The touchscreen cannot be opened yet: %2. Trying again (attempt %n of 50)..."),
         attempt, reason});
    ports_.clock.sleep(kBetweenAttempts);
    status = device.open();
  }
  return status;
}

void DeviceOpening::giveUp(UsbDeviceInterface& device, Status status) {
  ports_.diagnostics.line("unable to open device: " + hexText(status));
  device.release();
  ports_.process.devIntf = nullptr;
  ports_.alerts.show("Error", "Unable to open device: " + hexText(status) + ".", "OK",
                     adviceOnOpening(status));
}

}  // namespace touchpanel
