#include "providers/files/FileCalls.h"

#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace touchpanel::files {

int FileCalls::open(const std::string& path, int flags, mode_t mode) {
  return ::open(path.c_str(), flags, mode);
}
ssize_t FileCalls::read(int file, void* buffer, std::size_t size) { return ::read(file, buffer, size); }
ssize_t FileCalls::write(int file, const void* buffer, std::size_t size) {
  return ::write(file, buffer, size);
}
int FileCalls::fchmod(int file, mode_t mode) { return ::fchmod(file, mode); }
int FileCalls::fsync(int file) { return ::fsync(file); }
int FileCalls::close(int file) { return ::close(file); }
int FileCalls::rename(const std::string& from, const std::string& to) {
  return ::rename(from.c_str(), to.c_str());
}
int FileCalls::unlink(const std::string& path) { return ::unlink(path.c_str()); }

}  // namespace touchpanel::files
