#include "providers/files/BoundedRead.h"

#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>

#include "providers/files/FileStatus.h"

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

  bool isOpen() const { return file_ >= 0; }
  /// The size of a regular file; nothing for anything else.
  std::optional<std::size_t> size() const {
    struct stat status {};
    if (::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
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

Status readBounded(const std::string& path, std::size_t limit, FileCalls& calls, std::string& contents) {
  OpenFile file(path, calls);
  if (!file.isOpen()) return statusOfErrno();
  const auto size = file.size();
  if (!size || *size > limit) return kErrorUnsupported;

  // One byte more than expected, so that a file which grows meanwhile is noticed.
  contents.assign(*size + 1, '\0');
  std::size_t length = 0;
  while (length < contents.size()) {
    const auto got = file.read(contents.data() + length, contents.size() - length);
    if (got < 0) return statusOfErrno();
    if (got == 0) break;
    length += static_cast<std::size_t>(got);
  }
  contents.resize(length);
  return length > *size ? kErrorUnsupported : kSuccess;
}

}  // namespace touchpanel::files
