#include "providers/files/OwnDirectoryFiles.h"

#include <sys/stat.h>

namespace touchpanel::files {
namespace {

constexpr mode_t kForTheUserAlone = 0700;

/// Whether it worked is seen by what is written there next.
void makeDirectoryOf(const std::string& path) {
  for (auto slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1))
    ::mkdir(path.substr(0, slash).c_str(), kForTheUserAlone);
}

}  // namespace

Status OwnDirectoryFiles::writeAtomically(const std::string& path, const Dictionary& contents) {
  const auto status = files_.writeAtomically(path, contents);
  if (status != kErrorNotFound) return status;
  makeDirectoryOf(path);
  return files_.writeAtomically(path, contents);
}

}  // namespace touchpanel::files
