#pragma once

#include <string>
#include <vector>

#include <poll.h>

#include "emulator/usbip/UsbBus.h"

namespace touchpanel::emulator {

/// Plugs touchscreens into this machine's own kernel, through its virtual host controller (module vhci-hcd).
/// Needs write access to the controller's files, which only root has.
class VhciBus : public UsbBus {
 public:
  /// `platform` is where the kernel shows its controllers, "vhci_hcd.0" and so on.
  explicit VhciBus(std::string platform = "/sys/devices/platform");
  ~VhciBus() override;
  VhciBus(const VhciBus&) = delete;
  VhciBus& operator=(const VhciBus&) = delete;

  PlugResult plug(UsbIpConnection& connection, std::optional<int> port) override;
  void unplug(UsbIpConnection& connection) override;

  /// Appends what has to be watched for service().
  void watch(std::vector<pollfd>& descriptors) const;
  /// Takes what the kernel has sent and sends what there is for it, without waiting. Returns the lines that
  /// the kernel has cut by itself; they are to be unplugged.
  std::vector<UsbIpConnection*> service();

 private:
  struct Line {
    UsbIpConnection* connection;
    int socket;
    int port;
  };

  std::string controller(int index) const;
  PlugResult plugAt(UsbIpConnection& connection, int port);
  void hangUp(const Line& line) const;
  static bool receive(const Line& line);
  static bool send(const Line& line);

  std::string platform_;
  std::vector<Line> lines_;
};

}  // namespace touchpanel::emulator
