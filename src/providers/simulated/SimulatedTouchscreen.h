#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "driver/PublishedInstances.h"
#include "driver/TouchDriver.h"
#include "firmware/Firmware.h"
#include "firmware/TouchSurface.h"

namespace touchpanel::simulated {

/// One touchscreen model: what is in the box, whether plugged in or not.
struct TouchscreenModel {
  std::string name;  ///< for people: "Infrared 1"
  firmware::DeviceDescription description;
  firmware::Distortion distortion;
  std::uint32_t locationId = 0;    ///< where it is plugged in; not 0
  std::uint8_t configuration = 1;  ///< the active USB configuration; 0 while not configured
};

/// A plugged-in or unplugged touchscreen: its firmware, its sensor, and the driver instance that serves it
/// while it is plugged in. Fingers are given as points of the screen, times in the caller's own monotonic
/// clock.
class SimulatedTouchscreen final : public driver::PublishedInstance {
 public:
  using Output = std::function<void(const OutputFrame&)>;

  explicit SimulatedTouchscreen(TouchscreenModel model);

  const TouchscreenModel& model() const { return model_; }
  std::uint16_t productId() const { return model_.description.productId; }
  firmware::Firmware& firmware() { return firmware_; }
  driver::TouchDriver& driver() { return driver_; }
  const driver::TouchDriver& driver() const { return driver_; }
  firmware::TouchSurface& surface() { return surface_; }

  std::uint32_t locationId() const override { return model_.locationId; }
  Dictionary properties() const override { return driver_.properties(); }
  Status setProperty(std::string_view name, const Value& value) override {
    return driver_.setProperty(name, value);
  }
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area) override {
    driver_.setDoubleClick(time, area);
  }

  void setConfiguration(std::uint8_t configuration) { model_.configuration = configuration; }
  /// Who gets what the driver instance puts out; called from inside touches, ticks and property writes.
  void setOutput(Output output) { output_ = std::move(output); }

  /// One finger comes down, moves or stays; returns the raw point that the sensor reports for it.
  firmware::RawPoint touch(firmware::ScreenFraction point, std::chrono::microseconds now);
  /// The finger stays where it came down or moved to last: the sensor reports the same raw point once more.
  void hold(std::chrono::microseconds now);
  /// The last finger leaves.
  void release(std::chrono::microseconds now);
  void tick(std::chrono::microseconds now) { driver_.tick(now); }

  /// What the driver service does when a touchscreen arrives: it reads the calibration that the device holds.
  void loadCalibrationIntoDriver();

 private:
  void report(std::chrono::microseconds now);

  TouchscreenModel model_;
  firmware::Firmware firmware_;
  firmware::TouchSurface surface_;
  firmware::RawPoint last_;  ///< where the finger is, or was
  Output output_;
  driver::TouchDriver driver_;
};

}  // namespace touchpanel::simulated
