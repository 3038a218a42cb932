#pragma once

#include <string>

#include "platform/Monitors.h"

namespace touchpanel {

/// The setting of a desktop that puts touch devices on monitors itself.
class TouchOutputs {
 public:
  virtual ~TouchOutputs() = default;
  /// Sets `monitor` for the touch devices whose names begin with `name`, where this desktop has such a setting and it is
  /// another one. Blocks for some calls to the session bus.
  virtual void assign(const std::string& name, const Monitor& monitor) = 0;
};

}  // namespace touchpanel
