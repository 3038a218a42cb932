#pragma once

#include <fcntl.h>

#include "providers/files/FileCalls.h"

namespace touchpanel::driver {

/// The system's file calls, for files that everybody may read, whatever the umask of the service.
class ReadableFileCalls final : public files::FileCalls {
 public:
  int open(const std::string& path, int flags, mode_t mode) override {
    constexpr mode_t kReadable = 0644;
    const int file = FileCalls::open(path, flags, mode);
    if (file >= 0 && (flags & O_CREAT) != 0) FileCalls::fchmod(file, kReadable);
    return file;
  }
};

}  // namespace touchpanel::driver
