#include "providers/files/UnreadableBackup.h"

#include <sys/stat.h>

#include "providers/files/BoundedRead.h"
#include "providers/files/FileStatus.h"

namespace touchpanel::files {

namespace {
constexpr std::size_t kLargestCopy = 1U << 26U;
constexpr mode_t kPermissionBits = 0666;
}  // namespace

UnreadableBackup::UnreadableBackup(const std::string& path, FileCalls& calls) : status_(copy(path, calls)) {}

Status UnreadableBackup::copy(const std::string& path, FileCalls& calls) {
  std::string contents;
  struct stat original {};
  if (const auto status = readBounded(path, kLargestCopy, calls, contents); status != kSuccess) return status;
  if (::stat(path.c_str(), &original) != 0) return statusOfErrno();
  copy_.emplace(
      [&](int attempt) {
        return path + ".unreadable" + (attempt == 0 ? "" : '.' + std::to_string(attempt + 1));
      },
      calls);
  const bool copied = copy_->exists() && copy_->takePermissions(original.st_mode & kPermissionBits) &&
                      copy_->fill(contents) && copy_->finish();
  return copied ? kSuccess : statusOfErrno();
}

}  // namespace touchpanel::files
