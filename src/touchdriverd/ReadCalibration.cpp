#include "touchdriverd/ReadCalibration.h"

#include "contract/ProductId.h"
#include "protocol/Exchange.h"

namespace touchpanel::driver {

namespace {
// As the control panel waits for the service, so the service waits for the control panel.
constexpr int kOpenAttempts = 50;
constexpr std::chrono::milliseconds kOpenDelay{500};

/// Whether waiting can help: another program has it, or its node has not got its permissions yet.
bool isPassing(Status status) { return status == kErrorExclusiveAccess || status == kErrorNotPermitted; }

Status openPatiently(UsbDeviceInterface& device, Clock& clock) {
  auto status = device.open();
  for (int attempt = 1; isPassing(status) && attempt < kOpenAttempts; ++attempt) {
    clock.sleep(kOpenDelay);
    status = device.open();
  }
  return status;
}
}  // namespace

Status readCalibration(UsbDeviceInterface& device, std::uint16_t productId, HeldCalibration& held,
                       Clock& clock, Diagnostics& diagnostics) {
  const auto kind = kindOf(productId);
  if (kind != DeviceKind::Infrared && kind != DeviceKind::Optical) return kErrorUnsupported;
  if (const auto status = openPatiently(device, clock); status != kSuccess) return status;
  _DEVICT_CONTEXT context{};
  context.DeviceConfig.CalibrateStatus = held.calibrateStatus;
  context.CalibParams = held.params;
  const ExchangePorts ports{clock, diagnostics};
  const int read = kind == DeviceKind::Infrared ? getIrTucParam(device, context, ports)
                                                : getOptTucParam(device, context, ports);
  device.close();
  held = {context.DeviceConfig.CalibrateStatus != 0, context.CalibParams};
  return read == 1 ? kSuccess : kErrorInputOutput;
}

}  // namespace touchpanel::driver
