#include "providers/linux/usb/DeviceLock.h"

#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "providers/linux/usb/UsbStatus.h"

namespace touchpanel {

Status DeviceLock::take(std::uint8_t bus, std::uint8_t deviceNumber) {
  std::array<char, 32> path{};
  std::snprintf(path.data(), path.size(), "/dev/bus/usb/%03d/%03d", int{bus}, int{deviceNumber});
  const int node = ::open(path.data(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (node < 0) return statusOfErrno(errno);
  if (::flock(node, LOCK_EX | LOCK_NB) != 0) {
    const int error = errno;
    ::close(node);
    return statusOfErrno(error);
  }
  node_ = node;
  return kSuccess;
}

void DeviceLock::release() {
  if (node_ >= 0) ::close(node_);
  node_ = -1;
}

}  // namespace touchpanel
