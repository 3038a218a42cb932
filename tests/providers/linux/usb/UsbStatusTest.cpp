#include <cerrno>
#include <climits>

#include <gtest/gtest.h>
#include <libusb.h>

#include "providers/linux/loop/ErrnoStatus.h"
#include "providers/linux/usb/UsbStatus.h"

namespace touchpanel {
namespace {

struct Row {
  int code;
  Status status;
};

TEST(UsbStatus, IsTranslatedFromLibusb) {
  for (const Row& row :
       {Row{0, kSuccess}, Row{64, kSuccess}, Row{LIBUSB_ERROR_IO, kErrorInputOutput},
        Row{LIBUSB_ERROR_INVALID_PARAM, kErrorBadArgument}, Row{LIBUSB_ERROR_ACCESS, kErrorNotPermitted},
        Row{LIBUSB_ERROR_NO_DEVICE, kErrorNoDevice}, Row{LIBUSB_ERROR_NOT_FOUND, kErrorNotFound},
        Row{LIBUSB_ERROR_BUSY, kErrorExclusiveAccess}, Row{LIBUSB_ERROR_TIMEOUT, kErrorTimeout},
        Row{LIBUSB_ERROR_OVERFLOW, kErrorInputOutput}, Row{LIBUSB_ERROR_PIPE, kErrorStalled},
        Row{LIBUSB_ERROR_INTERRUPTED, kErrorInputOutput}, Row{LIBUSB_ERROR_NO_MEM, kErrorNoMemory},
        Row{LIBUSB_ERROR_NOT_SUPPORTED, kErrorUnsupported}, Row{LIBUSB_ERROR_OTHER, kErrorGeneral},
        Row{-4711, kErrorGeneral}, Row{INT_MIN, kErrorGeneral}})
    EXPECT_EQ(statusOfLibusb(row.code), row.status) << row.code;
}

TEST(UsbStatus, IsTranslatedFromAnErrno) {
  for (const Row& row : {Row{ENOENT, kErrorNoDevice}, Row{ENODEV, kErrorNoDevice}, Row{ENXIO, kErrorNoDevice},
                         Row{EACCES, kErrorNotPermitted}, Row{EPERM, kErrorNotPermitted},
                         Row{EWOULDBLOCK, kErrorExclusiveAccess}, Row{EBUSY, kErrorExclusiveAccess},
                         Row{ENOMEM, kErrorNoMemory}, Row{EMFILE, kErrorGeneral}, Row{0, kErrorGeneral}})
    EXPECT_EQ(statusOfErrno(row.code), row.status) << row.code;
}

}  // namespace
}  // namespace touchpanel
