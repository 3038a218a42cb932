#include "providers/linux/usb/UsbStatus.h"

#include <libusb.h>

namespace touchpanel {

Status statusOfLibusb(int code) {
  if (code >= 0) return kSuccess;
  switch (code) {
    case LIBUSB_ERROR_IO:
    case LIBUSB_ERROR_OVERFLOW:
    case LIBUSB_ERROR_INTERRUPTED:
      return kErrorInputOutput;
    case LIBUSB_ERROR_INVALID_PARAM:
      return kErrorBadArgument;
    case LIBUSB_ERROR_ACCESS:
      return kErrorNotPermitted;
    case LIBUSB_ERROR_NO_DEVICE:
      return kErrorNoDevice;
    case LIBUSB_ERROR_NOT_FOUND:
      return kErrorNotFound;
    case LIBUSB_ERROR_BUSY:
      return kErrorExclusiveAccess;
    case LIBUSB_ERROR_TIMEOUT:
      return kErrorTimeout;
    case LIBUSB_ERROR_PIPE:
      return kErrorStalled;
    case LIBUSB_ERROR_NO_MEM:
      return kErrorNoMemory;
    case LIBUSB_ERROR_NOT_SUPPORTED:
      return kErrorUnsupported;
    default:
      return kErrorGeneral;
  }
}

}  // namespace touchpanel
