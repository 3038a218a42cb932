#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>

#include "contract/ProductId.h"
#include "driver/InstanceProperties.h"
#include "driver/TouchPipeline.h"
#include "platform/Status.h"
#include "platform/TouchFrames.h"
#include "platform/Value.h"

namespace touchpanel::driver {

/// One driver instance on one thread: what a control panel writes to and reads from it, and the touch pipeline
/// that it steers. Pure logic: no I/O and no clock; time comes with the frames. Simulated touchscreens wrap this
/// class; the driver service keeps its two halves on two threads.
///
/// Units: times are in ms. An area or range of n reaches n times 32 logical units (n/1024 of the screen) to
/// each side of a point, in x and in y. A smoothing level of n is a low-pass of n times 4 ms.
class TouchDriver {
 public:
  using Sink = std::function<void(const OutputFrame&)>;

  /// `output` is called for every frame the desktop is to get, from inside process(), tick() or
  /// setProperty(). Frames without a change are left out. The sensitivity filter and smoothing
  /// exist on optical touchscreens only; another `kind` keeps their settings and does not apply them.
  explicit TouchDriver(Sink output, DeviceKind kind = DeviceKind::Optical)
      : pipeline_(std::move(output), kind) {}
  TouchDriver(const TouchDriver&) = delete;
  TouchDriver& operator=(const TouchDriver&) = delete;

  /// The property write of a client: "calibration", "configration" or "monitor" with a dictionary; absent
  /// keys stay as they are, an empty dictionary changes nothing. Another key, type, size or range, or a valid
  /// calibration that maps no glass onto a screen: kErrorBadArgument and nothing is changed. kErrorUnsupported
  /// for a property that does not exist.
  ///
  /// A written "mode", "enableTouch", "enableRightClick", "statCalibrate" or part of the desktop that changes
  /// something ends a touch that is under way: buttons and contacts are let go at once, a finger counts again
  /// when it has left.
  Status setProperty(std::string_view name, const Value& value);

  /// All properties as a control panel reads them: "calibration" (with "x", "y", "pointId" of the last
  /// captured touch beside what was written) and "configration".
  Dictionary properties() const { return properties_.properties(capturing(), pipeline_.capture().last()); }

  /// Takes one frame. No allocation.
  void process(const RawFrame& frame) { pipeline_.process(frame); }

  /// When something is due without any further frame (the right click of a finger that holds still): the
  /// time, in the input's own clock, at which tick() is to be called.
  std::optional<std::chrono::microseconds> nextDeadline() const { return pipeline_.nextDeadline(); }
  void tick(std::chrono::microseconds now) { pipeline_.tick(now); }

  /// The system's double-click time and area (in the units above), for the double-tap help; a time of 0, with
  /// which an instance starts, is no help. Negative values act as 0.
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area) {
    pipeline_.setDoubleClick(time, area);
  }

  /// The touchscreen is gone, with whatever fingers were on it: lets go of every button and contact.
  void releaseAll() { pipeline_.releaseAll(); }

  const CalibrationSettings& calibration() const { return properties_.calibration(); }
  const TouchSettings& settings() const { return properties_.settings(); }
  const MonitorPlacement& monitor() const { return properties_.monitor(); }
  /// Whether a calibration run has capture on.
  bool capturing() const { return pipeline_.capture().active(); }

  /// What lasts, as a dictionary that restore() takes back after a restart. Capture state and the last touch
  /// are not part of it.
  Dictionary state() const { return properties_.state(); }
  /// Takes what is valid of `state` and leaves the rest as it is; returns false when anything was refused.
  bool restore(const Dictionary& state);

 private:
  InstanceProperties properties_;
  TouchPipeline pipeline_;
};

}  // namespace touchpanel::driver
