#include "providers/simulated/SimulatedTouchscreen.h"

#include "contract/DriverProperties.h"

namespace touchpanel::simulated {

SimulatedTouchscreen::SimulatedTouchscreen(TouchscreenModel model)
    : model_(std::move(model)),
      firmware_(model_.description),
      surface_(model_.distortion, model_.locationId),
      driver_(
          [this](const OutputFrame& frame) {
            if (output_) output_(frame);
          },
          kindOf(model_.description.productId)) {}

firmware::RawPoint SimulatedTouchscreen::touch(firmware::ScreenFraction point,
                                               std::chrono::microseconds now) {
  last_ = surface_.rawFor(point);
  report(now);
  return last_;
}

void SimulatedTouchscreen::hold(std::chrono::microseconds now) { report(now); }

void SimulatedTouchscreen::report(std::chrono::microseconds now) {
  RawFrame frame;
  frame.time = now;
  frame.count = 1;
  frame.contacts[0] = {0, last_.x, last_.y};
  driver_.process(frame);
}

void SimulatedTouchscreen::release(std::chrono::microseconds now) {
  RawFrame frame;
  frame.time = now;
  driver_.process(frame);
}

void SimulatedTouchscreen::loadCalibrationIntoDriver() {
  // The configuration-only kind holds no calibration; its driver instance keeps what it last received.
  if (kindOf(productId()) == DeviceKind::ConfigurationOnly) return;
  const auto& stored = firmware_.stored();
  driver_.setProperty(
      property::kCalibration,
      driver::calibrationMessage(stored.deviceConfig.CalibrateStatus != 0, stored.calibParams));
}

}  // namespace touchpanel::simulated
