#pragma once

#include "contract/MonitorChoice.h"
#include "discovery/DeviceEntry.h"

namespace touchpanel {

/// The monitors that touchscreens lie on.
class TouchscreenMonitors {
 public:
  TouchscreenMonitors(Registry& registry, Monitors& monitors) : registry_(registry), monitors_(monitors) {}

  struct Place {
    std::string connector;  ///< empty: not known
    std::int32_t turn = 0;  ///< by which touches are turned there, 0..3 quarter turns clockwise
  };
  /// The monitor of the touchscreen `entry`, whose driver instance then knows it as it is now. Blocks for a registry
  /// and a display server. A turn that the driver instance could not be told is none: touches do not follow it.
  Place place(const Dictionary& entry);

 private:
  Registry& registry_;
  Monitors& monitors_;
};

}  // namespace touchpanel
