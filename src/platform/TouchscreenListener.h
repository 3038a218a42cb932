#pragma once

#include <string>

#include "platform/TouchscreenIdentity.h"

namespace touchpanel {

/// Listens to touchscreens and their input nodes as they come and go. A touchscreen is named by its place in
/// the device tree, `device`; an input node belongs to the touchscreen above it. A node may be reported before
/// or after its touchscreen, twice, or for a device that is no touchscreen.
class TouchscreenListener {
 public:
  virtual ~TouchscreenListener() = default;
  virtual void touchscreenArrived(const std::string& device, const TouchscreenIdentity& identity) = 0;
  virtual void touchscreenLeft(const std::string& device) = 0;
  virtual void nodeArrived(const std::string& device, const std::string& node) = 0;
  virtual void nodeLeft(const std::string& node) = 0;
};

}  // namespace touchpanel
