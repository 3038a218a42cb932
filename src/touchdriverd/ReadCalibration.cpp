#include "touchdriverd/ReadCalibration.h"

#include <algorithm>
#include <array>

#include "config/DataSet.h"
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
/// A block that failed is no block of zeros.
bool hasCalibration(const ExchangeOutcome& outcome) {
  constexpr std::array kBlocks = {Content::DeviceConfig, Content::CalibX, Content::CalibY};
  return outcome.left && std::ranges::all_of(kBlocks, [&](Content block) {
           return outcome.done.contains(block) && !outcome.failed.contains(block);
         });
}
}  // namespace

Status readCalibration(UsbDeviceInterface& device, std::uint16_t productId, HeldCalibration& held,
                       Clock& clock, Diagnostics& diagnostics) {
  const auto kind = kindOf(productId);
  if (kind != DeviceKind::Infrared && kind != DeviceKind::Optical) return kErrorUnsupported;
  if (const auto status = openPatiently(device, clock); status != kSuccess) return status;
  _DEVICT_CONTEXT context{};
  const ExchangePorts ports{clock, diagnostics};
  ExchangeOutcome outcome;
  if (kind == DeviceKind::Infrared)
    getIrTucParam(device, context, ports, &outcome);
  else
    getOptTucParam(device, context, ports, &outcome);
  device.close();
  if (!hasCalibration(outcome)) return kErrorInputOutput;
  held = {context.DeviceConfig.CalibrateStatus != 0, context.CalibParams};
  return kSuccess;
}

Status readCalibration(PropertyListFiles& files, const std::string& path, HeldCalibration& held) {
  Status status = kSuccess;
  const auto file = files.read(path, status);
  if (!file) return status;
  HeldCalibration read{file->boolean(device_config_key::kCalibrateStatus), {}};
  const auto* params = file->bytes(device_config_key::kCalibParams);
  if (read.calibrateStatus && (!params || params->size() != kCalibParamsSize)) return kErrorBadArgument;
  if (params) copyImage(*params, read.params);
  held = read;
  return kSuccess;
}

}  // namespace touchpanel::driver
