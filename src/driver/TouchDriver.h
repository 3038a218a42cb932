#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>

#include "driver/Frames.h"
#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel::driver {

/// One driver instance: what a control panel writes to and reads from it, and the touch pipeline that it
/// steers. Pure logic: no I/O and no clock; time comes with the frames. The driver service and the simulated
/// registry both wrap this class.
class TouchDriver {
 public:
  using Sink = std::function<void(const OutputFrame&)>;

  /// `output` is called for every frame the desktop is to get, from inside process(), tick() or
  /// setProperty().
  explicit TouchDriver(Sink output);

  /// The property write of a control panel: "calibration" or "configration" with a dictionary; absent keys
  /// stay as they are, an empty dictionary changes nothing. Another name, type, size or range:
  /// kErrorBadArgument and nothing is changed. kErrorUnsupported for a property that does not exist.
  Status setProperty(std::string_view name, const Value& value);

  /// All properties as a control panel reads them: "calibration" (with "x", "y", "pointId" of the last
  /// captured touch beside what was written) and "configration".
  Dictionary properties() const;

  /// Takes one frame. No allocation.
  void process(const RawFrame& frame);

  /// When something is due without any further frame (the right click of a finger that holds still): the
  /// time, in the input's own clock, at which tick() is to be called.
  std::optional<std::chrono::microseconds> nextDeadline() const;
  void tick(std::chrono::microseconds now);

  /// The system's double-click time and area, for the double-tap help.
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area);

  /// Settings and calibration as a dictionary that restore() takes back after a restart. Capture state and
  /// the last touch are not part of it.
  Dictionary state() const;
  /// Takes what is valid of `state` and leaves the rest as it is; returns false when anything was refused.
  bool restore(const Dictionary& state);

 private:
  // implementation members
};

}  // namespace touchpanel::driver
