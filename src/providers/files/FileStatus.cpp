#include "providers/files/FileStatus.h"

#include <cerrno>

namespace touchpanel::files {

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

}  // namespace touchpanel::files
