#pragma once

#include <cstdint>

#include "platform/Status.h"
#include "providers/linux/loop/FileDescriptor.h"

namespace touchpanel {

/// The lock that makes opening a USB device exclusive between processes, and between two interfaces of one
/// process. It is an advisory flock() of the device's node under /dev/bus/usb, which every program that
/// talks to touchscreens takes first: it needs no directory of its own, goes with the process that held it
/// however that ends, and cannot outlive the device, whose next stay has a new node.
class DeviceLock {
 public:
  /// Takes the lock of a device that it does not hold yet. Does not wait: kErrorExclusiveAccess while another
  /// has it, kErrorNoDevice when there is no such node, kErrorNotPermitted when it may not be opened.
  Status take(std::uint8_t bus, std::uint8_t deviceNumber);
  void release() { node_ = FileDescriptor(); }

 private:
  FileDescriptor node_;
};

}  // namespace touchpanel
