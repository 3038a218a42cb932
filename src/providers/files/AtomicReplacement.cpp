#include "providers/files/AtomicReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "providers/files/FileStatus.h"
#include "providers/files/NewFile.h"

namespace touchpanel::files {

namespace {

/// A file of data never runs, and for nobody else than it did.
constexpr mode_t kPermissionBits = 0666;

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

void syncDirectory(const std::string& directory, FileCalls& calls) {
  const int file = calls.open(directory, O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (file < 0) return;
  calls.fsync(file);
  calls.close(file);
}

}  // namespace

Status replaceAtomically(const std::string& path, std::string_view contents, FileCalls& calls) {
  NewFile temporary([&](int attempt) { return temporaryName(path, attempt); }, calls);
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
