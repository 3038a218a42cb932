#include "providers/files/AtomicReplacement.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace touchpanel::files {

namespace {

constexpr mode_t kPermissionBits = 07777;
constexpr mode_t kNewFileMode = 0666;
constexpr int kNameAttempts = 100;

std::string directoryOf(const std::string& path) {
  const auto slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string temporaryName(const std::string& path, int attempt) {
  const auto slash = path.rfind('/');
  const auto nameStart = slash == std::string::npos ? 0 : slash + 1;
  return path.substr(0, nameStart) + "." + path.substr(nameStart) + "." + std::to_string(::getpid()) + "." +
         std::to_string(attempt) + ".tmp";
}

/// Of the call that failed last.
Status statusOfErrno() {
  switch (errno) {
    case ENOENT:
    case ENOTDIR:
      return kErrorNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return kErrorNotPermitted;
    case ENOSPC:
    case EDQUOT:
      return kErrorNoSpace;
    default:
      return kErrorInputOutput;
  }
}

bool writeAll(int file, std::string_view contents, FileCalls& calls) {
  while (!contents.empty()) {
    const auto written = calls.write(file, contents.data(), contents.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    contents.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// A file that disappears again unless it was moved into its place.
class TemporaryFile {
 public:
  TemporaryFile(const std::string& target, FileCalls& calls) : calls_(calls) {
    for (int attempt = 0; attempt < kNameAttempts && file_ < 0; ++attempt) {
      name_ = temporaryName(target, attempt);
      file_ = calls_.open(name_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kNewFileMode);
      if (file_ < 0 && errno != EEXIST) break;
    }
    exists_ = file_ >= 0;
  }
  ~TemporaryFile() {
    if (file_ >= 0) calls_.close(file_);
    if (exists_) calls_.unlink(name_);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool exists() const { return exists_; }
  bool fill(std::string_view contents) { return writeAll(file_, contents, calls_); }
  bool takePermissions(mode_t mode) { return calls_.fchmod(file_, mode) == 0; }
  bool finish() {
    const bool synced = calls_.fsync(file_) == 0;
    const bool closed = calls_.close(file_) == 0;
    file_ = -1;
    return synced && closed;
  }
  bool moveTo(const std::string& target) {
    if (calls_.rename(name_, target) != 0) return false;
    exists_ = false;
    return true;
  }

 private:
  FileCalls& calls_;
  std::string name_;
  int file_ = -1;
  bool exists_ = false;
};

void syncDirectory(const std::string& directory, FileCalls& calls) {
  const int file = calls.open(directory, O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (file < 0) return;
  calls.fsync(file);
  calls.close(file);
}

}  // namespace

Status replaceAtomically(const std::string& path, std::string_view contents, FileCalls& calls) {
  TemporaryFile temporary(path, calls);
  if (!temporary.exists()) return statusOfErrno();

  struct stat existing {};
  const bool replaces = ::stat(path.c_str(), &existing) == 0;
  // The data is synced before the new name, which could reach the disk first otherwise.
  const bool replaced = (!replaces || temporary.takePermissions(existing.st_mode & kPermissionBits)) &&
                        temporary.fill(contents) && temporary.finish() && temporary.moveTo(path);
  if (!replaced) return statusOfErrno();
  syncDirectory(directoryOf(path), calls);
  return kSuccess;
}

}  // namespace touchpanel::files
