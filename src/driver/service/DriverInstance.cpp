#include "driver/service/DriverInstance.h"

#include <algorithm>

#include "contract/DriverProperties.h"
#include "platform/HexText.h"

namespace touchpanel::driver {

namespace {
/// The axes span the desktop, of which the monitor is one part.
AxisResolution resolutionOf(const MonitorPlacement& monitor, const DesktopPart& part) {
  const bool onItsSide = part.turn % 2 != 0;
  const auto unitsPerMm = [](std::int32_t units, std::int32_t mm) {
    return mm > 0 ? std::max(units / mm, 1) : 0;
  };
  return {unitsPerMm(part.maxX - part.minX, onItsSide ? monitor.heightMm : monitor.widthMm),
          unitsPerMm(part.maxY - part.minY, onItsSide ? monitor.widthMm : monitor.heightMm)};
}
}  // namespace

DriverInstance::DriverInstance(const TouchscreenIdentity& identity, const ServicePorts& ports,
                               StateStore& store)
    : identity_(identity),
      ports_(ports),
      store_(store),
      failed_(ports.notices.createNotice([this] { devices_.deviceFailed(); })),
      chain_(ports.touches, kindOf(identity.productId), *failed_),
      devices_(identity, ports, chain_, [this] { bringInForce(); }) {
  if (!properties_.restore(store_.load(identity_)))
    ports_.diagnostics.line("A touchscreen's saved state is damaged; what is sound of it is used.");
  saved_ = properties_.state();
  mode_ = properties_.settings().mode;
  bringInForce();
  startReading();
}

Status DriverInstance::setProperty(std::string_view name, const Value& value) {
  const auto status = write(name, value);
  // Every message that hands over or takes away a calibration contains its status.
  if (status == kSuccess && value.get<Dictionary>()->contains(calibration_key::kCalibrateStatus))
    wroteCalibration_ = true;
  return status;
}

Status DriverInstance::write(std::string_view name, const Value& value) {
  CaptureRequest capture;
  if (const auto status = properties_.setProperty(name, value, capture); status != kSuccess) return status;
  if (capture.hasStatCalibrate) capturing_ = capture.statCalibrate;
  bringInForce(capture);
  auto state = properties_.state();
  if (state == saved_) return kSuccess;
  store_.save(identity_, state);
  saved_ = std::move(state);
  return kSuccess;
}

void DriverInstance::setDoubleClick(std::chrono::milliseconds time, std::int32_t area) {
  chain_.change([&](TouchPipeline& pipeline) { pipeline.setDoubleClick(time, area); });
}

void DriverInstance::bringInForce(const CaptureRequest& capture) {
  const auto mode = properties_.settings().mode;
  const auto& monitor = properties_.monitor();
  devices_.want({.pointer = mode != kMultiTouch || capturing_,
                 .touch = mode == kMultiTouch,
                 .pointerResolution = resolutionOf(monitor, monitor.pointer),
                 .touchResolution = resolutionOf(monitor, monitor.touch)});
  // Until the desktop has taken up the other kind of device, touches go on by way of the one that it has.
  if (devices_.areSettled() || (mode == kMultiTouch) == (mode_ == kMultiTouch)) mode_ = mode;
  chain_.change([&](TouchPipeline& pipeline) { configure(pipeline, properties_, mode_, capture); });
}

void DriverInstance::startReading() {
  if (kindOf(identity_.productId) == DeviceKind::ConfigurationOnly) return;
  const HeldCalibration known{properties_.calibration().calibrateStatus, properties_.calibration().params};
  reading_ = ports_.calibrations.start(
      identity_, known, [this](Status status, const HeldCalibration& held) { finishReading(status, held); });
}

void DriverInstance::finishReading(Status status, const HeldCalibration& held) {
  if (status != kSuccess) {
    ports_.diagnostics.line("Touchscreen " + hexText(identity_.locationId) +
                            ": its calibration cannot be read (error " + hexText(status) +
                            "); the last one known is used.");
    return;
  }
  if (wroteCalibration_) return;
  write(property::kCalibration, calibrationMessage(held.calibrateStatus, held.params));
}

}  // namespace touchpanel::driver
