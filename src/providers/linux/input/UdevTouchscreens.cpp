#include "providers/linux/input/UdevTouchscreens.h"

#include <cerrno>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include <libudev.h>

#include "contract/LocationId.h"
#include "contract/ProductId.h"
#include "platform_build/BuildConstants.h"

namespace touchpanel {

namespace {
constexpr char kUsb[] = "usb";
constexpr char kUsbDevice[] = "usb_device";
constexpr char kInput[] = "input";
/// Room for the burst of events when a hub with many touchscreens is plugged in.
constexpr int kReceiveBuffer = 1 << 20;

std::string_view text(const char* value) { return value ? value : std::string_view(); }

std::uint16_t hexAttribute(udev_device* device, const char* name) {
  const char* value = udev_device_get_sysattr_value(device, name);
  return value ? static_cast<std::uint16_t>(std::strtoul(value, nullptr, 16)) : std::uint16_t{0};
}
}  // namespace

void UdevTouchscreens::Unref::operator()(udev* context) const { udev_unref(context); }
void UdevTouchscreens::Unref::operator()(udev_monitor* monitor) const { udev_monitor_unref(monitor); }
void UdevTouchscreens::Unref::operator()(udev_enumerate* enumeration) const {
  udev_enumerate_unref(enumeration);
}
void UdevTouchscreens::Unref::operator()(udev_device* device) const { udev_device_unref(device); }

UdevTouchscreens::UdevTouchscreens(EventLoop& loop, TouchscreenListener& listener, Diagnostics& diagnostics)
    : listener_(listener), diagnostics_(diagnostics), udev_(udev_new()) {
  if (udev_) monitor_.reset(udev_monitor_new_from_netlink(udev_.get(), "udev"));
  if (!monitor_) throw std::system_error(errno, std::generic_category(), "udev");
  udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), kUsb, kUsbDevice);
  udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), kInput, nullptr);
  udev_monitor_set_receive_buffer_size(monitor_.get(),
                                       kReceiveBuffer);  // works for root only; the default does as well
  if (const int result = udev_monitor_enable_receiving(monitor_.get()); result < 0)
    throw std::system_error(-result, std::generic_category(), "udev monitor");
  watch_ = loop.watch(udev_monitor_get_fd(monitor_.get()), [this] { drain(); });
  // Listening first: what arrives during the enumeration is reported twice rather than not at all.
  enumerate();
}

UdevTouchscreens::~UdevTouchscreens() = default;

void UdevTouchscreens::enumerate() {
  std::set<std::string> present;
  for (const char* subsystem : {kUsb, kInput}) {
    const std::unique_ptr<udev_enumerate, Unref> enumeration(udev_enumerate_new(udev_.get()));
    udev_enumerate_add_match_subsystem(enumeration.get(), subsystem);
    udev_enumerate_add_match_is_initialized(enumeration.get());
    udev_enumerate_scan_devices(enumeration.get());
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumeration.get())) {
      const std::unique_ptr<udev_device, Unref> device(
          udev_device_new_from_syspath(udev_.get(), udev_list_entry_get_name(entry)));
      if (!device) continue;
      present.insert(udev_device_get_syspath(device.get()));
      arrived(device.get());
    }
  }
  withdrawAllBut(present);
}

void UdevTouchscreens::withdrawAllBut(const std::set<std::string>& present) {
  for (const auto& [node, place] : std::map(nodes_))
    if (!present.contains(place)) nodeLeft(node);
  for (const auto& [place, stay] : std::map(touchscreens_))
    if (!present.contains(place)) touchscreenLeft(place);
}

void UdevTouchscreens::drain() {
  bool eventsLost = false;
  for (;;) {
    const std::unique_ptr<udev_device, Unref> device(udev_monitor_receive_device(monitor_.get()));
    if (!device) {
      if (errno != ENOBUFS) break;
      eventsLost = true;
    } else if (text(udev_device_get_action(device.get())) == "remove") {
      left(device.get());
    } else {
      arrived(device.get());
    }
  }
  if (!eventsLost) return;
  diagnostics_.line("Events of udev are lost; all devices are looked at.");
  enumerate();
}

void UdevTouchscreens::arrived(udev_device* device) {
  const auto subsystem = text(udev_device_get_subsystem(device));
  if (subsystem == kUsb && text(udev_device_get_devtype(device)) == kUsbDevice) touchscreenArrived(device);
  if (subsystem == kInput && text(udev_device_get_sysname(device)).starts_with("event")) nodeArrived(device);
}

void UdevTouchscreens::touchscreenArrived(udev_device* device) {
  const auto product = hexAttribute(device, "idProduct");
  if (hexAttribute(device, "idVendor") != TOUCH_VENDOR_ID || kindOf(product) == DeviceKind::Unknown) return;
  const auto location = locationIdFromKernelName(text(udev_device_get_sysname(device)));
  if (!location) return;
  const std::string place = udev_device_get_syspath(device);
  const std::string stay(text(udev_device_get_devnode(device)));
  if (const auto [known, isNew] = touchscreens_.emplace(place, stay); !isNew) {
    if (known->second == stay) return;
    touchscreenLeft(place);
    touchscreens_[place] = stay;
  }
  diagnostics_.line("Touchscreen at " + place);
  listener_.touchscreenArrived(
      place, {*location, product, std::string(text(udev_device_get_property_value(device, "ID_PATH")))});
}

void UdevTouchscreens::nodeArrived(udev_device* device) {
  const char* node = udev_device_get_devnode(device);
  auto* usb = udev_device_get_parent_with_subsystem_devtype(device, kUsb, kUsbDevice);
  if (!node || !usb || hexAttribute(usb, "idVendor") != TOUCH_VENDOR_ID) return;
  const std::string place = udev_device_get_syspath(device);
  if (const auto [known, isNew] = nodes_.emplace(node, place); !isNew) {
    if (known->second == place) return;
    nodeLeft(node);
    nodes_[node] = place;
  }
  diagnostics_.line(std::string("Input node ") + node);
  listener_.nodeArrived(udev_device_get_syspath(usb), node);
}

void UdevTouchscreens::left(udev_device* device) {
  // An event of a device whose place or node another one has taken meanwhile says nothing about that one.
  const std::string place = udev_device_get_syspath(device);
  const std::string deviceNode(text(udev_device_get_devnode(device)));
  const auto touchscreen = touchscreens_.find(place);
  if (touchscreen != touchscreens_.end() && touchscreen->second == deviceNode) touchscreenLeft(place);
  const auto node = nodes_.find(deviceNode);
  if (node != nodes_.end() && node->second == place) nodeLeft(std::string(node->first));
}

void UdevTouchscreens::touchscreenLeft(const std::string& place) {
  touchscreens_.erase(place);
  listener_.touchscreenLeft(place);
}

void UdevTouchscreens::nodeLeft(const std::string& node) {
  nodes_.erase(node);
  listener_.nodeLeft(node);
}

}  // namespace touchpanel
