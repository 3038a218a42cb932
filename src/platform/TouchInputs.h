#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/Status.h"
#include "platform/TouchFrames.h"

namespace touchpanel {

/// Takes the frames of an input node, on the touch thread.
class FrameListener {
 public:
  virtual ~FrameListener() = default;
  virtual void frame(const RawFrame& frame) = 0;
  /// When tick() is to be called although no frame comes, in the clock of the frames.
  virtual std::optional<std::chrono::microseconds> nextDeadline() const = 0;
  virtual void tick(std::chrono::microseconds now) = 0;
};

/// What an input node reports of touches, in the order of what can be made of it.
enum class InputReports { Nothing, Pen, AbsoluteMouse, SingleTouch, MultiTouchA, MultiTouchB };

/// An input node held exclusively: nobody else in the system sees its events. Destroying it gives it back.
/// Belongs to the main thread, whatever thread its frames come on.
class TouchInput {
 public:
  virtual ~TouchInput() = default;
  /// Nothing: it is held only so that a touchscreen's mouse imitation stays quiet.
  virtual InputReports reports() const = 0;
  /// Frames go to `listener` from now on, beginning with the fingers that are down already; null: nowhere.
  /// Times are those of the monotonic clock.
  virtual void listen(FrameListener* listener) = 0;
};

/// Opens input nodes.
class TouchInputs {
 public:
  virtual ~TouchInputs() = default;
  /// Grabs `node` (a path) and sets `input`. kErrorBusy while a finger is down on it, whose release the desktop
  /// would miss; kErrorExclusiveAccess when another program holds it, kErrorNotPermitted, kErrorNoDevice when
  /// it is gone, kErrorUnsupported when it is nothing to point with.
  virtual Status open(const std::string& node, std::unique_ptr<TouchInput>& input) = 0;
};

}  // namespace touchpanel
