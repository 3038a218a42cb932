#pragma once

#include <memory>

#include "platform/Status.h"
#include "platform/TouchFrames.h"
#include "platform/TouchscreenIdentity.h"

namespace touchpanel {

/// What the desktop sees in a touchscreen's place. Destroying it releases everything it holds.
class PointerDevice {
 public:
  virtual ~PointerDevice() = default;
  /// Sends one frame to the desktop. Not kSuccess when the device is broken.
  virtual Status write(const OutputFrame& frame) = 0;
  /// Whether there is a multi-touch device beside the pointer. Contacts of a frame go nowhere while there is
  /// none.
  virtual Status setMultiTouch(bool wanted) = 0;
};

class PointerDevices {
 public:
  virtual ~PointerDevices() = default;
  /// kErrorNotFound when the system has no such devices, kErrorNotPermitted.
  virtual Status create(const TouchscreenIdentity& identity, std::unique_ptr<PointerDevice>& device) = 0;
};

}  // namespace touchpanel
