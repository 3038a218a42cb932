#include "providers/files/BoundedRead.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace touchpanel::files {

namespace {

class OpenFile {
 public:
  // Not blocking: a FIFO under the file's name must not hang the program before it is recognised as one.
  OpenFile(const std::string& path, FileCalls& calls)
      : calls_(calls), file_(calls.open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0)) {}
  ~OpenFile() {
    if (file_ >= 0) calls_.close(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  /// The size of a regular file; nothing for anything else.
  std::optional<std::size_t> size() const {
    struct stat status {};
    if (file_ < 0 || ::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return static_cast<std::size_t>(status.st_size);
  }
  ssize_t read(char* buffer, std::size_t size) {
    ssize_t got;
    do {
      got = calls_.read(file_, buffer, size);
    } while (got < 0 && errno == EINTR);
    return got;
  }

 private:
  FileCalls& calls_;
  int file_;
};

}  // namespace

std::optional<std::string> readBounded(const std::string& path, std::size_t limit, FileCalls& calls) {
  OpenFile file(path, calls);
  const auto size = file.size();
  if (!size || *size > limit) return std::nullopt;

  // One byte more than expected, so that a file which grows meanwhile is noticed.
  std::string contents(*size + 1, '\0');
  std::size_t length = 0;
  while (length < contents.size()) {
    const auto got = file.read(contents.data() + length, contents.size() - length);
    if (got < 0) return std::nullopt;
    if (got == 0) break;
    length += static_cast<std::size_t>(got);
  }
  if (length > *size) return std::nullopt;
  contents.resize(length);
  return contents;
}

}  // namespace touchpanel::files
