#pragma once

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "contract/DriverProperties.h"
#include "driver/TouchDriver.h"

namespace touchpanel::testing {

/// Touches written down, and what the desktop made of them, as text.
///
/// A script is a list of "<ms>: <x>,<y>" (one finger), "<ms>: <id>@<x>,<y> <id>@<x>,<y>" (several), "<ms>: -"
/// (nobody touches), "<ms>!" (a timer, no frame) and "<key>=<value> ..." (settings, numbers or yes and no),
/// parted by "; ". Heard are "move x,y", "left x,y" (pressed), "right x,y" (pressed), "drag x,y" (moved with a
/// button held), "up x,y" (released) and "fingers <id>@<x>,<y> ..." with "fingers -" for none. A place with one
/// number has it on both axes; heard places are left out where the pointer stays.
class Glass {
 public:
  explicit Glass(DeviceKind kind = DeviceKind::Optical)
      : driver([this](const OutputFrame& frame) { hear(frame); }, kind) {
    driver.setDoubleClick(std::chrono::milliseconds(500), 5);
  }

  Status calibrate(const Dictionary& calibration) {
    return driver.setProperty(property::kCalibration, calibration);
  }

  Status configure(const Dictionary& settings) {
    return driver.setProperty(property::kConfigration, settings);
  }

  Status place(const Dictionary& monitor) { return driver.setProperty(property::kMonitor, monitor); }

  /// Plays `script` and returns what was heard of it.
  std::string play(const std::string& script) {
    heard_.clear();
    std::istringstream steps(script);
    for (std::string step; std::getline(steps >> std::ws, step, ';');)
      step.find('=') == std::string::npos ? playStep(step) : set(step);
    return heard_;
  }

  driver::TouchDriver driver;

 private:
  void set(const std::string& step) {
    Dictionary settings;
    std::istringstream words(step);
    for (std::string key, value; std::getline(words >> std::ws, key, '=') && words >> value;)
      settings.set(key, value == "yes" || value == "no" ? Value(value == "yes") : Value(std::stoi(value)));
    const bool capture =
        settings.contains(calibration_key::kStatCalibrate) || settings.contains(calibration_key::kPointId);
    EXPECT_EQ(driver.setProperty(capture ? property::kCalibration : property::kConfigration, settings),
              kSuccess)
        << step;
  }
  void playStep(const std::string& step) {
    std::size_t used = 0;
    const std::chrono::milliseconds time(std::stol(step, &used));
    if (step[used] == '!') return driver.tick(time);
    RawFrame frame;
    frame.time = time;
    std::istringstream fingers(step.substr(used + 1));
    for (std::string finger; fingers >> finger && finger != "-";) {
      const auto at = finger.find('@');
      const auto start = at == std::string::npos ? 0 : at + 1;
      const auto comma = finger.find(',');
      frame.contacts[frame.count++] = {
          start == 0 ? 0 : std::stoi(finger), std::stoi(finger.substr(start)),
          std::stoi(finger.substr(comma == std::string::npos ? start : comma + 1))};
    }
    driver.process(frame);
  }

  void hear(const OutputFrame& frame) {
    std::ostringstream text;
    if (!heard_.empty()) text << "; ";
    if (frame.count > 0 || last_.count > 0) {
      text << "fingers";
      for (std::size_t i = 0; i < frame.count; ++i)
        text << ' ' << frame.contacts[i].id << '@' << place(frame.contacts[i].x, frame.contacts[i].y);
      if (frame.count == 0) text << " -";
    } else {
      text << verb(frame);
      const auto at = place(frame.x, frame.y);
      if (frame.hasPosition && std::exchange(pointer_, at) != at) text << ' ' << at;
    }
    heard_ += text.str();
    last_ = frame;
  }
  static std::string place(std::int32_t x, std::int32_t y) {
    return std::to_string(x) + (x == y ? "" : "," + std::to_string(y));
  }
  const char* verb(const OutputFrame& frame) const {
    if (frame.left && !last_.left) return "left";
    if (frame.right && !last_.right) return "right";
    if (!frame.left && !frame.right && (last_.left || last_.right)) return "up";
    return frame.left || frame.right ? "drag" : "move";
  }

  std::string heard_;
  std::string pointer_;
  OutputFrame last_;
};

}  // namespace touchpanel::testing
