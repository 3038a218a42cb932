#include "touchdriverd/UsbCalibrationReader.h"

#include <cerrno>
#include <functional>
#include <span>
#include <system_error>
#include <thread>
#include <utility>

#include <libusb.h>
#include <sys/eventfd.h>

#include "contract/ProductId.h"
#include "platform_build/BuildConstants.h"
#include "providers/linux/loop/FileDescriptor.h"
#include "providers/linux/usb/LibusbDeviceInterface.h"
#include "providers/linux/usb/UsbStatus.h"
#include "touchdriverd/ReadCalibration.h"
#include "touchdriverd/StoppablePorts.h"

namespace touchpanel::driver {

namespace {
struct ExitLibusb {
  void operator()(libusb_context* context) const { libusb_exit(context); }
};
struct FreeList {
  void operator()(libusb_device** list) const { libusb_free_device_list(list, 1); }
};

/// The touchscreen at that place; null when it is gone.
std::shared_ptr<UsbAttachment> find(libusb_context* context, const TouchscreenIdentity& identity) {
  libusb_device** raw = nullptr;
  const auto count = libusb_get_device_list(context, &raw);
  if (count < 0) return nullptr;
  const std::unique_ptr<libusb_device*, FreeList> list(raw);
  for (auto* device : std::span(raw, static_cast<std::size_t>(count))) {
    libusb_device_descriptor descriptor{};
    if (libusb_get_device_descriptor(device, &descriptor) != 0) continue;
    if (descriptor.idVendor != TOUCH_VENDOR_ID || descriptor.idProduct != identity.productId) continue;
    auto attachment = libusbAttachment(LibusbDevice(libusb_ref_device(device)), descriptor);
    std::uint32_t location = 0;
    LibusbDeviceInterface({attachment}).getLocationID(location);
    if (location == identity.locationId) return attachment;
  }
  return nullptr;
}

Status readOverUsb(const TouchscreenIdentity& identity, HeldCalibration& held, Diagnostics& details,
                   const std::stop_token& stop) {
  libusb_context* raw = nullptr;
  if (const auto status = statusOfLibusb(libusb_init(&raw)); status != kSuccess) return status;
  const std::unique_ptr<libusb_context, ExitLibusb> usb(raw);
  const auto attachment = find(usb.get(), identity);
  if (!attachment) return kErrorNoDevice;
  LibusbDeviceInterface device({attachment});
  StoppableDevice stoppable(device, stop);
  StoppableClock clock(stop);
  return readCalibration(stoppable, identity.productId, held, clock, details);
}

class ThreadedRead final : public PendingRead {
 public:
  using Read = std::function<Status(HeldCalibration& held, const std::stop_token& stop)>;

  ThreadedRead(EventLoop& loop, Read read, CalibrationReader::Done done)
      : done_(std::move(done)), finished_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (!finished_) throw std::system_error(errno, std::generic_category(), "eventfd");
    watch_ = loop.watch(finished_.get(), [this] { finish(); });
    thread_ = std::jthread([this, read = std::move(read)](const std::stop_token& stop) {
      status_ = read(held_, stop);
      ::eventfd_write(finished_.get(), 1);
    });
  }

 private:
  void finish() {
    watch_->stop();
    thread_.join();
    done_(status_, held_);
  }

  HeldCalibration held_;  ///< the thread's own until it has finished, as is status_
  Status status_ = kErrorGeneral;
  CalibrationReader::Done done_;
  FileDescriptor finished_;
  std::unique_ptr<EventLoop::Watch> watch_;
  std::jthread thread_;
};
}  // namespace

std::unique_ptr<PendingRead> UsbCalibrationReader::start(const TouchscreenIdentity& identity, Done done) {
  ThreadedRead::Read read = [&details = details_, identity](HeldCalibration& held,
                                                            const std::stop_token& stop) {
    return readOverUsb(identity, held, details, stop);
  };
  if (kindOf(identity.productId) == DeviceKind::ConfigurationOnly)
    read = [&files = files_, path = deviceConfig_](HeldCalibration& held, const std::stop_token&) {
      return readCalibration(files, path, held);
    };
  return std::make_unique<ThreadedRead>(loop_, std::move(read), std::move(done));
}

}  // namespace touchpanel::driver
