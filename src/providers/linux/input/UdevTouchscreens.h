#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/Diagnostics.h"
#include "platform/TouchscreenListener.h"
#include "providers/linux/loop/EventLoop.h"

struct udev;
struct udev_device;
struct udev_enumerate;
struct udev_monitor;

namespace touchpanel {

/// Finds touchscreens, by vendor and product id, and the input nodes below them, through udev: those that are
/// there and those that come and go. An instance is published as soon as its USB device is known, before its
/// input nodes are. When events are lost, all devices are looked at again.
class UdevTouchscreens {
 public:
  /// Nothing is owned. Throws std::system_error when udev cannot be used.
  UdevTouchscreens(EventLoop& loop, TouchscreenListener& listener, Diagnostics& diagnostics);
  ~UdevTouchscreens();
  UdevTouchscreens(const UdevTouchscreens&) = delete;
  UdevTouchscreens& operator=(const UdevTouchscreens&) = delete;

 private:
  void enumerate();
  void withdrawAllBut(const std::set<std::string>& present);
  void drain();
  void arrived(udev_device* device);
  void left(udev_device* device);
  void touchscreenArrived(udev_device* device);
  void nodeArrived(udev_device* device);
  void touchscreenLeft(const std::string& place);
  void nodeLeft(const std::string& node);

  TouchscreenListener& listener_;
  Diagnostics& diagnostics_;
  struct Unref {
    void operator()(udev* context) const;
    void operator()(udev_monitor* monitor) const;
    void operator()(udev_enumerate* enumeration) const;
    void operator()(udev_device* device) const;
  };
  std::map<std::string, std::string>
      touchscreens_;                          ///< reported: place in the device tree, USB node of this stay
  std::map<std::string, std::string> nodes_;  ///< reported: input node, its own place in the device tree
  std::unique_ptr<udev, Unref> udev_;
  std::unique_ptr<udev_monitor, Unref> monitor_;
  std::unique_ptr<EventLoop::Watch> watch_;
};

}  // namespace touchpanel
