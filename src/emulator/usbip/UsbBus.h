#pragma once

#include <optional>
#include <string>

#include "emulator/usbip/UsbIpConnection.h"

namespace touchpanel::emulator {

/// What came of plugging a touchscreen in.
struct PlugResult {
  enum class Outcome { Plugged, PortBusy, Failed };
  Outcome outcome = Outcome::Failed;
  int port = 0;        ///< where it is plugged in
  std::string reason;  ///< why not
};

/// Something that touchscreens can be plugged into.
class UsbBus {
 public:
  virtual ~UsbBus() = default;

  /// Plugs a device in, at `port` or, without one, at the first free port. `connection` must live until
  /// unplug(). PortBusy: the wanted port is taken, or the last device there has not quite gone yet. Does not
  /// wait.
  virtual PlugResult plug(UsbIpConnection& connection, std::optional<int> port) = 0;
  /// Pulls the device out; the host notices by itself some time later.
  virtual void unplug(UsbIpConnection& connection) = 0;
};

}  // namespace touchpanel::emulator
