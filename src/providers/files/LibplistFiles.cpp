#include "providers/files/LibplistFiles.h"

#include <expat.h>

#include "providers/files/AtomicReplacement.h"
#include "providers/files/BoundedRead.h"
#include "providers/files/DecodingLimits.h"
#include "providers/files/PropertyListCoding.h"

namespace touchpanel::files {

LibraryInUse libplistInUse() { return {.name = "libplist", .licence = "GNU LGPL 2.1 or later"}; }

LibraryInUse expatInUse() {
  const auto version = XML_ExpatVersionInfo();
  return {
      .name = "expat", .licence = "MIT", .version = versionText(version.major, version.minor, version.micro)};
}

std::optional<Dictionary> LibplistFiles::read(const std::string& path) {
  const auto file = readBounded(path, kMaximumFileSize, calls_);
  if (!file) return std::nullopt;
  return decodePropertyList(*file);
}

Status LibplistFiles::writeAtomically(const std::string& path, const Dictionary& contents) {
  return replaceAtomically(path, encodePropertyList(contents), calls_);
}

}  // namespace touchpanel::files
