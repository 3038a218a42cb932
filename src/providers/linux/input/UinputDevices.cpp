#include "providers/linux/input/UinputDevices.h"

#include <cerrno>
#include <optional>
#include <span>

#include <fcntl.h>
#include <libevdev/libevdev-uinput.h>
#include <libevdev/libevdev.h>
#include <unistd.h>

#include "contract/DriverProperties.h"
#include "platform/HexText.h"
#include "platform_build/BuildConstants.h"
#include "providers/linux/input/OutputEvents.h"
#include "providers/linux/loop/ErrnoStatus.h"
#include "providers/linux/loop/FileDescriptor.h"

namespace touchpanel {

namespace {
constexpr char kUinputNode[] = "/dev/uinput";

struct FreeEvdev {
  void operator()(libevdev* device) const { libevdev_free(device); }
};
using Evdev = std::unique_ptr<libevdev, FreeEvdev>;

struct DestroyUinput {
  void operator()(libevdev_uinput* device) const { libevdev_uinput_destroy(device); }
};

void enableAxis(libevdev* device, unsigned code, std::int32_t maximum, std::int32_t resolution = 0) {
  const input_absinfo info{0, 0, maximum, 0, 0, resolution};
  libevdev_enable_event_code(device, EV_ABS, code, &info);
}

Evdev describe(const OutputDescription& description, const char* role) {
  Evdev device(libevdev_new());
  const auto& touchscreen = description.touchscreen;
  libevdev_set_name(device.get(), ("Touchscreen " + hexText(touchscreen.locationId) + ' ' + role).c_str());
  libevdev_set_id_bustype(device.get(), BUS_VIRTUAL);
  libevdev_set_id_vendor(device.get(), TOUCH_VENDOR_ID);
  libevdev_set_id_product(device.get(), touchscreen.productId);
  enableAxis(device.get(), ABS_X, kLogicalMaximum, description.resolution.x);
  enableAxis(device.get(), ABS_Y, kLogicalMaximum, description.resolution.y);
  return device;
}

Evdev describePointer(const OutputDescription& description) {
  auto device = describe(description, "pointer");
  libevdev_enable_event_code(device.get(), EV_KEY, BTN_LEFT, nullptr);
  libevdev_enable_event_code(device.get(), EV_KEY, BTN_RIGHT, nullptr);
  return device;
}

Evdev describeMultiTouch(const OutputDescription& description) {
  auto device = describe(description, "multi-touch");
  libevdev_enable_property(device.get(), INPUT_PROP_DIRECT);
  libevdev_enable_event_code(device.get(), EV_KEY, BTN_TOUCH, nullptr);
  enableAxis(device.get(), ABS_MT_SLOT, static_cast<std::int32_t>(kMaximumContacts) - 1);
  enableAxis(device.get(), ABS_MT_TRACKING_ID, 0xFFFF);
  enableAxis(device.get(), ABS_MT_POSITION_X, kLogicalMaximum, description.resolution.x);
  enableAxis(device.get(), ABS_MT_POSITION_Y, kLogicalMaximum, description.resolution.y);
  return device;
}

/// One uinput device, which exists for this object's lifetime.
class UinputDevice {
 public:
  static Status create(const libevdev* description, std::optional<UinputDevice>& device) {
    FileDescriptor file(::open(kUinputNode, O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (!file) return statusOfOpening(errno);
    libevdev_uinput* made = nullptr;
    if (const int result = libevdev_uinput_create_from_device(description, file.get(), &made); result < 0)
      return statusOfErrno(-result);
    device.emplace(UinputDevice(std::move(file), made));
    return kSuccess;
  }
  Status write(std::span<const input_event> events) {
    if (events.empty()) return kSuccess;
    const auto size = static_cast<ssize_t>(events.size_bytes());
    ssize_t written = 0;
    do written = ::write(file_.get(), events.data(), events.size_bytes());
    while (written < 0 && errno == EINTR);  // in which case nothing was taken
    return written == size ? kSuccess : statusOfErrno(errno);
  }

 private:
  UinputDevice(FileDescriptor file, libevdev_uinput* device) : file_(std::move(file)), device_(device) {}
  static Status statusOfOpening(int code) {
    return code == ENOENT || code == ENODEV || code == ENXIO ? kErrorNotFound : statusOfErrno(code);
  }

  FileDescriptor file_;
  std::unique_ptr<libevdev_uinput, DestroyUinput> device_;
};

/// `Events` makes the events of a frame.
template <typename Events>
class UinputOutput final : public OutputDevice {
 public:
  explicit UinputOutput(UinputDevice device) : device_(std::move(device)) {}
  Status write(const OutputFrame& frame) override { return device_.write(events_.next(frame)); }

 private:
  UinputDevice device_;
  Events events_;
};
}  // namespace

Status UinputDevices::create(const OutputDescription& description, std::unique_ptr<OutputDevice>& device) {
  const bool isPointer = description.kind == OutputKind::Pointer;
  std::optional<UinputDevice> made;
  const auto evdev = isPointer ? describePointer(description) : describeMultiTouch(description);
  if (const auto status = UinputDevice::create(evdev.get(), made); status != kSuccess) return status;
  if (isPointer)
    device = std::make_unique<UinputOutput<PointerEvents>>(std::move(*made));
  else
    device = std::make_unique<UinputOutput<ContactEvents>>(std::move(*made));
  return kSuccess;
}

}  // namespace touchpanel
