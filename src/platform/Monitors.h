#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace touchpanel {

/// One monitor of the desktop.
struct Monitor {
  /// As its EDID has them; all empty when it has none. Without texts in it, the numbers as "0x1234".
  struct Edid {
    std::string maker;  ///< three letters
    std::string model;
    std::string serial;
    bool operator==(const Edid&) const = default;
  };
  /// In the desktop's own units: pixels of the root window on X, points of the compositor on Wayland. Origin at the
  /// desktop's top left.
  struct Area {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const Area&) const = default;
  };

  std::string identity = {};   ///< see identify(); never the same for two monitors of a desktop
  std::string connector = {};  ///< such as "HDMI-1"
  std::string name = {};       ///< for people; may be that of another monitor, too
  Edid edid = {};
  Area area = {};            ///< as it is turned
  std::int32_t turn = 0;     ///< 0..3 quarter turns clockwise by which the picture is turned
  std::int32_t widthMm = 0;  ///< of the unturned monitor; 0: unknown
  std::int32_t heightMm = 0;
  bool isPrimary = false;
  bool operator==(const Monitor&) const = default;
};

/// The monitors of the user's desktop and what is made of absolute devices there.
struct Desktop {
  std::vector<Monitor> monitors = {};  ///< empty when there are none, or nothing is known of them
  std::int32_t width = 0;              ///< of the whole desktop, in the units of Monitor::Area
  std::int32_t height = 0;
  // False: it is stretched over the whole desktop as it is. True: the compositor puts it on one monitor and turns it.
  bool placesPointers = false;  ///< an absolute pointer
  bool placesTouches = false;   ///< a touch device
  bool operator==(const Desktop&) const = default;
};

/// The monitors of the session that the program runs in.
class Monitors {
 public:
  virtual ~Monitors() = default;
  /// As it is now. Blocks for a few round trips to the display server.
  virtual Desktop desktop() = 0;
  /// Calls `changed`, which may be null, from the run loop whenever desktop() may have become another one.
  virtual void onChange(std::function<void()> changed) = 0;
};

/// What stays the same of a monitor wherever it is plugged in; its connector when it has no EDID.
inline std::string unitOf(const Monitor& monitor) {
  const auto& [maker, model, serial] = monitor.edid;
  return maker.empty() ? monitor.connector : maker + ' ' + model + ' ' + serial;
}

/// Fills in the identities. Of monitors that cannot be told apart otherwise, the connector is a part of them.
inline void identify(std::vector<Monitor>& monitors) {
  for (auto& monitor : monitors) {
    const auto isAlike = [&](const Monitor& other) { return unitOf(other) == unitOf(monitor); };
    monitor.identity = unitOf(monitor);
    if (std::ranges::count_if(monitors, isAlike) > 1) monitor.identity += ' ' + monitor.connector;
  }
}

}  // namespace touchpanel
