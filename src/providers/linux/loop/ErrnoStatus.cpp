#include "providers/linux/loop/ErrnoStatus.h"

#include <cerrno>

namespace touchpanel {

Status statusOfErrno(int code) {
  switch (code) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
      return kErrorNoDevice;
    case EACCES:
    case EPERM:
      return kErrorNotPermitted;
    case EWOULDBLOCK:
    case EBUSY:
      return kErrorExclusiveAccess;
    case ENOMEM:
      return kErrorNoMemory;
    default:
      return kErrorGeneral;
  }
}

}  // namespace touchpanel
