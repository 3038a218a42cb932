#include "providers/linux/usb/DeviceLock.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>

#include "providers/linux/loop/ErrnoStatus.h"

namespace touchpanel {

Status DeviceLock::take(std::uint8_t bus, std::uint8_t deviceNumber) {
  std::array<char, 32> path{};
  std::snprintf(path.data(), path.size(), "/dev/bus/usb/%03d/%03d", int{bus}, int{deviceNumber});
  FileDescriptor node(::open(path.data(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!node || ::flock(node.get(), LOCK_EX | LOCK_NB) != 0) return statusOfErrno(errno);
  node_ = std::move(node);
  return kSuccess;
}

}  // namespace touchpanel
