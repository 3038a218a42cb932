#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "emulator/device/UsbTouchscreen.h"
#include "emulator/usbip/UsbBus.h"
#include "emulator/usbip/UsbIpConnection.h"

namespace touchpanel::emulator {

/// One touchscreen and, while it is plugged in, its line to the host.
struct Touchscreen {
  UsbTouchscreen device;
  std::optional<UsbIpConnection> connection;
  std::optional<int> port;  ///< where it belongs: chosen, or where it was plugged in first
};

/// All touchscreens of one emulator by name. What a touchscreen has stored lives on while it is unplugged.
class Touchscreens {
 public:
  explicit Touchscreens(UsbBus& bus) : bus_(bus) {}

  /// Null when there is none of that name.
  Touchscreen* find(const std::string& name);
  /// `name` must be new.
  Touchscreen& add(const std::string& name, UsbTouchscreen device);
  /// Forgets a touchscreen, and what it has stored with it.
  void remove(const std::string& name);
  const std::map<std::string, std::unique_ptr<Touchscreen>>& all() const { return all_; }

  /// Plugs in a touchscreen that is not, at its port when it has one. See UsbBus::plug().
  PlugResult plug(Touchscreen& touchscreen);
  void unplug(Touchscreen& touchscreen);
  /// The same for the touchscreen at the end of that line, if there is one.
  void unplug(const UsbIpConnection& connection);

  /// Carries out what a fault has brought about since the last call: touchscreens that pull their own plug.
  void settle();
  /// Hands fresh input reports to the host.
  void deliverReports();

 private:
  UsbBus& bus_;
  std::map<std::string, std::unique_ptr<Touchscreen>> all_;
};

}  // namespace touchpanel::emulator
