#pragma once

#include <cstddef>
#include <string>

#include <sys/types.h>

namespace touchpanel::files {

/// The operating system's file calls, by which a test can let any single one fail. Each returns what the
/// call of the same name returns and leaves its reason in errno.
class FileCalls {
 public:
  virtual ~FileCalls() = default;
  virtual int open(const std::string& path, int flags, mode_t mode);
  virtual ssize_t read(int file, void* buffer, std::size_t size);
  virtual ssize_t write(int file, const void* buffer, std::size_t size);
  virtual int fchmod(int file, mode_t mode);
  virtual int fsync(int file);
  virtual int close(int file);
  virtual int rename(const std::string& from, const std::string& to);
  virtual int unlink(const std::string& path);
};

}  // namespace touchpanel::files
