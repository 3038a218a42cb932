#include "providers/files/LibplistFiles.h"

#include <expat.h>

#include "providers/files/AtomicReplacement.h"
#include "providers/files/BoundedRead.h"
#include "providers/files/DecodingLimits.h"
#include "providers/files/FileStatus.h"
#include "providers/files/PropertyListCoding.h"
#include "providers/files/UnreadableBackup.h"

namespace touchpanel::files {

LibraryInUse libplistInUse() { return {.name = "libplist", .licence = "GNU LGPL 2.1 or later"}; }

LibraryInUse expatInUse() {
  const auto version = XML_ExpatVersionInfo();
  return {
      .name = "expat", .licence = "MIT", .version = versionText(version.major, version.minor, version.micro)};
}

std::optional<Dictionary> LibplistFiles::read(const std::string& path, Status& status) {
  std::string file;
  status = readBounded(path, kMaximumFileSize, calls_, file);
  if (status != kSuccess) return std::nullopt;
  auto contents = decodePropertyList(file);
  if (!contents) status = kErrorUnsupported;
  return contents;
}

Status LibplistFiles::writeAtomically(const std::string& path, const Dictionary& contents) {
  Status present = kSuccess;
  read(path, present);
  if (present == kSuccess || present == kErrorNotFound)
    return replaceAtomically(path, encodePropertyList(contents), calls_);
  UnreadableBackup backup(path, calls_);
  if (backup.status() != kSuccess) return backup.status();
  const auto written = replaceAtomically(path, encodePropertyList(contents), calls_);
  if (written == kSuccess) backup.keep();
  return written;
}

Status LibplistFiles::move(const std::string& from, const std::string& to) {
  return calls_.rename(from, to) == 0 ? kSuccess : statusOfErrno();
}

}  // namespace touchpanel::files
