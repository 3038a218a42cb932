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
                               StateStore& store, SettingsInForce& settings)
    : identity_(identity),
      ports_(ports),
      store_(store),
      settings_(settings),
      failed_(ports.notices.createNotice([this] { devices_.deviceFailed(); })),
      chain_(ports.touches, kindOf(identity.productId), *failed_),
      devices_(identity, ports, chain_, [this] { bringInForce(); }),
      keeping_(identity, ports, properties_, *this) {
  restore();
  bringInForce();
  keeping_.begin();
}

void DriverInstance::restore() {
  const auto remembered = store_.load(identity_);
  const bool isSound = properties_.restore(settings_.over(remembered));
  settings_.takeOver(remembered, properties_.settings());
  mode_ = properties_.settings().mode;
  keeping_.keep(properties_.calibration());
  if (isSound)
    store_.understood(identity_, state());
  else
    store_.understoodInPart(identity_, state());
}

Dictionary DriverInstance::state() const {
  auto state = properties_.state();
  state.set(property::kCalibration, toDictionary(keeping_.kept()));
  state.set(property::kConfigration, ownSettings(properties_.settings()));
  return state;
}

Status DriverInstance::setProperty(std::string_view name, const Value& value) {
  CaptureRequest capture;
  if (const auto status = properties_.setProperty(name, value, capture); status != kSuccess) return status;
  if (capture.hasStatCalibrate) capturing_ = capture.statCalibrate;
  bringInForce(capture);
  if (name == property::kConfigration) settings_.written(*value.get<Dictionary>(), properties_.settings());
  store_.save(identity_, state());
  return kSuccess;
}

void DriverInstance::calibrationChanged() {
  bringInForce();
  store_.save(identity_, state());
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

}  // namespace touchpanel::driver
