#pragma once

#include <sstream>
#include <string>

#include "contract/DriverProperties.h"
#include "driver/TouchDriver.h"

namespace touchpanel::testing {

/// Touches written down, and what the desktop made of them, as text.
///
/// A touch script is a list of "<ms>: <x>,<y>" (one finger), "<ms>: <id>@<x>,<y> <id>@<x>,<y>" (several),
/// "<ms>: -" (nobody touches) and "<ms>!" (a timer, no frame), parted by "; ". Heard are "move x,y", "left
/// x,y" (pressed), "right x,y" (pressed), "drag x,y" (moved with a button held), "up x,y" (released) and
/// "fingers <id>@<x>,<y> ..." with "fingers -" for none.
class Glass {
 public:
  explicit Glass(DeviceKind kind = DeviceKind::Optical)
      : driver([this](const OutputFrame& frame) { hear(frame); }, kind) {}

  Status configure(Dictionary settings) { return driver.setProperty(property::kConfigration, settings); }
  Status calibrate(Dictionary calibration) { return driver.setProperty(property::kCalibration, calibration); }

  /// Plays `script` and returns what was heard since the last call.
  std::string play(const std::string& script) {
    std::istringstream steps(script);
    for (std::string step; std::getline(steps >> std::ws, step, ';');) playStep(step);
    return heard();
  }
  std::string heard() { return std::exchange(heard_, ""); }

  driver::TouchDriver driver;

 private:
  void playStep(const std::string& step) {
    std::size_t used = 0;
    const std::chrono::milliseconds time(std::stol(step, &used));
    if (step[used] == '!') return driver.tick(time);
    RawFrame frame;
    frame.time = time;
    std::istringstream fingers(step.substr(used + 1));
    for (std::string finger; fingers >> finger && finger != "-";) {
      const auto at = finger.find('@');
      const auto comma = finger.find(',');
      const auto start = at == std::string::npos ? 0 : at + 1;
      frame.contacts[frame.count++] = {at == std::string::npos ? 0 : std::stoi(finger),
                                       std::stoi(finger.substr(start)), std::stoi(finger.substr(comma + 1))};
    }
    driver.process(frame);
  }

  void hear(const OutputFrame& frame) {
    std::ostringstream text;
    if (!heard_.empty()) text << "; ";
    if (frame.count > 0 || last_.count > 0) {
      text << "fingers";
      for (std::size_t i = 0; i < frame.count; ++i)
        text << ' ' << frame.contacts[i].id << '@' << frame.contacts[i].x << ',' << frame.contacts[i].y;
      if (frame.count == 0) text << " -";
    } else {
      text << verb(frame);
      if (frame.hasPosition) text << ' ' << frame.x << ',' << frame.y;
    }
    heard_ += text.str();
    last_ = frame;
  }
  const char* verb(const OutputFrame& frame) const {
    if (frame.left && !last_.left) return "left";
    if (frame.right && !last_.right) return "right";
    if (!frame.left && !frame.right && (last_.left || last_.right)) return "up";
    return frame.left || frame.right ? "drag" : "move";
  }

  std::string heard_;
  OutputFrame last_;
};

}  // namespace touchpanel::testing
