#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "emulator/usbip/UsbBus.h"
#include "providers/linux/loop/EventLoop.h"
#include "providers/linux/loop/FileDescriptor.h"

namespace touchpanel::emulator {

/// Plugs touchscreens into this machine's own kernel, through its virtual host controller (module vhci-hcd).
/// Needs write access to the controller's files, which only root has.
class VhciBus : public UsbBus {
 public:
  /// `active` is called after the kernel has sent something or has cut a line, and may not unplug anything.
  VhciBus(EventLoop& loop, std::function<void()> active);
  ~VhciBus() override;
  VhciBus(const VhciBus&) = delete;
  VhciBus& operator=(const VhciBus&) = delete;

  PlugResult plug(UsbIpConnection& connection, std::optional<int> port) override;
  void unplug(UsbIpConnection& connection) override;

  /// Sends what there is for the kernel, without waiting. Returns the lines that the kernel has cut; they are to
  /// be unplugged.
  std::vector<UsbIpConnection*> exchange();

 private:
  struct Line {
    UsbIpConnection* connection;
    FileDescriptor socket;
    int port;
    bool cut = false;
    std::unique_ptr<EventLoop::Watch> watch;
  };

  PlugResult plugAt(UsbIpConnection& connection, int port);
  static void hangUp(const Line& line);
  static bool receive(const Line& line);
  static bool send(const Line& line);

  EventLoop& loop_;
  std::function<void()> active_;
  std::vector<std::unique_ptr<Line>> lines_;
};

}  // namespace touchpanel::emulator
