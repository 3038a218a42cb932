#pragma once

#include <memory>
#include <string>

#include "platform/Status.h"
#include "platform/TouchFrames.h"

namespace touchpanel {

/// Takes the frames of an input node.
class FrameListener {
 public:
  virtual ~FrameListener() = default;
  virtual void frame(const RawFrame& frame) = 0;
};

/// An input node held exclusively: nobody else in the system sees its events. Destroying it gives it back.
class TouchInput {
 public:
  virtual ~TouchInput() = default;
  /// Whether it reports touches; otherwise it is held only so that a touchscreen's mouse imitation stays
  /// quiet.
  virtual bool reportsTouches() const = 0;
  /// Frames go to `listener` from now on, beginning with the fingers that are down already, never from inside
  /// this call. Before that they go nowhere. Times are those of the clock of Timers.
  virtual void listen(FrameListener& listener) = 0;
};

/// Opens input nodes.
class TouchInputs {
 public:
  virtual ~TouchInputs() = default;
  /// Grabs `node` (a path) and sets `input`. kErrorExclusiveAccess when another program holds it,
  /// kErrorNotPermitted, kErrorNoDevice when it is gone, kErrorUnsupported when it is no pointing device.
  virtual Status open(const std::string& node, std::unique_ptr<TouchInput>& input) = 0;
};

}  // namespace touchpanel
