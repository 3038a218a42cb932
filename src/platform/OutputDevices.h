#pragma once

#include <memory>

#include "platform/Status.h"
#include "platform/TouchFrames.h"
#include "platform/TouchscreenIdentity.h"

namespace touchpanel {

/// What the desktop takes a device for.
enum class OutputKind {
  Pointer,  ///< an absolute pointer with a left and a right button
  Touch,    ///< a multi-touch touchscreen
};

/// Units per millimetre on each axis, 0 where that is not known.
struct AxisResolution {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const AxisResolution&) const = default;
};

struct OutputDescription {
  TouchscreenIdentity touchscreen;
  OutputKind kind = OutputKind::Pointer;
  AxisResolution resolution;
  bool operator==(const OutputDescription&) const = default;
};

/// A device that the desktop sees in a touchscreen's place. Destroying it releases everything it holds.
class OutputDevice {
 public:
  virtual ~OutputDevice() = default;
  /// Sends the part of a frame that is of its kind: position and buttons, or contacts. Not kSuccess when the
  /// device is broken. On the touch thread; does not block.
  virtual Status write(const OutputFrame& frame) = 0;
};

class OutputDevices {
 public:
  virtual ~OutputDevices() = default;
  /// kErrorNotFound when the system has no such devices, kErrorNotPermitted. Blocks for milliseconds.
  virtual Status create(const OutputDescription& description, std::unique_ptr<OutputDevice>& device) = 0;
};

}  // namespace touchpanel
