#include "support/MockUsbBus.h"

#include <sys/ioctl.h>
// After <sys/ioctl.h>, whose macros it uses.
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <stdexcept>

#include <fcntl.h>
#include <linux/usbdevice_fs.h>
#include <sys/stat.h>
#include <umockdev.h>
#include <unistd.h>

namespace touchpanel::testing {
namespace {

constexpr std::size_t kSetupSize = 8;
constexpr int kSmallestPipe = 4096;

std::string bytes(std::initializer_list<int> values) {
  std::string text;
  for (const int value : values) text.push_back(static_cast<char>(value));
  return text;
}

std::string deviceDescriptor(int deviceClass, std::uint16_t vendorId, std::uint16_t productId) {
  return bytes({18, 1, 0x00, 0x02, deviceClass, 0, 0, 64, vendorId & 0xFF, vendorId >> 8, productId & 0xFF,
                productId >> 8, 0, 1, 0, 0, 0, 1});
}

/// A device descriptor and one configuration with a HID interface and its interrupt endpoint.
std::string touchscreenDescriptors(std::uint16_t vendorId, std::uint16_t productId) {
  return deviceDescriptor(0, vendorId, productId) + bytes({9, 2, 25, 0, 1, 1, 0, 0x80, 50}) +
         bytes({9, 4, 0, 0, 1, 3, 0, 0, 0}) + bytes({7, 5, 0x81, 3, 64, 0, 10});
}

std::string hubDescriptors() {
  return deviceDescriptor(9, 0x1D6B, 0x0002) + bytes({9, 2, 18, 0, 1, 1, 0, 0xE0, 0}) +
         bytes({9, 4, 0, 0, 0, 9, 0, 0, 0});
}

std::string formatted(const char* format, int number) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), format, number);
  return text.data();
}

std::string nodePath(int bus, int number) {
  return "/dev/bus/usb/" + formatted("%03d", bus) + "/" + formatted("%03d", number);
}

/// A list of names and values as umockdev takes it; `texts` must outlive it.
std::vector<char*> listOf(std::vector<std::string>& texts) {
  std::vector<char*> list;
  for (auto& text : texts) list.push_back(text.data());
  list.push_back(nullptr);
  return list;
}

/// What a device hangs on: "1-2" on "usb1", "1-2.4" on "1-2", a root hub on nothing.
std::string parentOf(const std::string& name) {
  if (const auto dot = name.rfind('.'); dot != std::string::npos) return name.substr(0, dot);
  if (const auto dash = name.find('-'); dash != std::string::npos) return "usb" + name.substr(0, dash);
  return {};
}

int busOf(const std::string& name) { return std::stoi(name.starts_with("usb") ? name.substr(3) : name); }

/// Called on the thread that answers, around each transfer that is handed in.
struct TransferHooks {
  std::function<void()> before;
  std::function<void()> afterSubmit;  ///< the transfer is under way, or done
};

}  // namespace

/// The node of one USB device on a mock bus: takes control transfers as the kernel does, one URB at a time,
/// and has them answered by a touchscreen's firmware.
///
/// libusb waits for the node to become writable, and a node that always is would keep it spinning. So the
/// node is a FIFO that is kept full and drained while a URB is ready to be fetched.
class MockUsbNode {
 public:
  /// `realPath` is where the node is made, `path` its name in the mock environment.
  MockUsbNode(UMockdevTestbed* testbed, const std::string& realPath, const std::string& path,
              firmware::Firmware& firmware, TransferHooks hooks)
      : devicePath(path), firmware_(firmware), hooks_(std::move(hooks)), realPath_(realPath) {
    if (::mkfifo(realPath.c_str(), 0600) != 0) throw std::runtime_error("cannot make " + realPath);
    fifo_ = ::open(realPath.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (fifo_ < 0) throw std::runtime_error("cannot open " + realPath);
    ::fcntl(fifo_, F_SETPIPE_SZ, kSmallestPipe);
    fill();
    g_signal_connect(handler_, "handle-ioctl", G_CALLBACK(&MockUsbNode::handle), this);
    if (!umockdev_testbed_attach_ioctl(testbed, path.c_str(), handler_, nullptr))
      throw std::runtime_error("cannot attach " + path);
  }
  ~MockUsbNode() {
    g_object_unref(handler_);
    ::close(fifo_);
  }
  MockUsbNode(const MockUsbNode&) = delete;
  MockUsbNode& operator=(const MockUsbNode&) = delete;

  /// The device is gone: what is under way ends at once, and every call fails from now on.
  void vanish() {
    const std::lock_guard lock(mutex_);
    gone_ = true;
    for (auto& urb : pending_) finish(std::move(urb), -ESHUTDOWN, 0);
    pending_.clear();
    drain();
    ::unlink(realPath_.c_str());
  }
  void setHanging(bool on) {
    const std::lock_guard lock(mutex_);
    hanging_ = on;
  }

  const std::string devicePath;

 private:
  struct Unref {
    void operator()(UMockdevIoctlData* data) const { umockdev_ioctl_data_unref(data); }
  };
  using Data = std::unique_ptr<UMockdevIoctlData, Unref>;
  struct Answer {
    long result = 0;
    int error = 0;
  };

  static gboolean handle(UMockdevIoctlBase*, UMockdevIoctlClient* client, gpointer node) {
    auto& self = *static_cast<MockUsbNode*>(node);
    const auto request = umockdev_ioctl_client_get_request(client);
    // Outside the lock: what is asked for here may be this very device's unplugging.
    if (request == USBDEVFS_SUBMITURB) self.hooks_.before();
    const auto answer = self.answer(request, umockdev_ioctl_client_get_arg(client));
    umockdev_ioctl_client_complete(client, answer.result, answer.error);
    if (request == USBDEVFS_SUBMITURB) self.hooks_.afterSubmit();
    return TRUE;
  }

  static Data resolve(UMockdevIoctlData* data, std::size_t offset, std::size_t length) {
    return Data(umockdev_ioctl_data_resolve(data, offset, length, nullptr));
  }

  Answer answer(unsigned long request, UMockdevIoctlData* argument) {
    const std::lock_guard lock(mutex_);
    switch (request) {
      case USBDEVFS_GET_CAPABILITIES: {
        const auto flags = resolve(argument, 0, sizeof(std::uint32_t));
        std::fill_n(flags->data, sizeof(std::uint32_t), std::uint8_t{0});
        return gone_ ? Answer{-1, ENODEV} : Answer{};
      }
      case USBDEVFS_SUBMITURB:
        return submit(argument);
      case USBDEVFS_REAPURBNDELAY:
        return reap(argument);
      case USBDEVFS_DISCARDURB:
        return discard(argument);
      default:
        return {-1, gone_ ? ENODEV : ENOTTY};
    }
  }

  Answer submit(UMockdevIoctlData* argument) {
    if (gone_) return {-1, ENODEV};
    auto urb = resolve(argument, 0, sizeof(usbdevfs_urb));
    auto& fields = *reinterpret_cast<usbdevfs_urb*>(urb->data);
    if (fields.type != USBDEVFS_URB_TYPE_CONTROL) return {-1, EINVAL};
    const auto length = static_cast<std::size_t>(fields.buffer_length);
    const auto buffer = resolve(urb.get(), offsetof(usbdevfs_urb, buffer), length);
    if (hanging_) {
      pending_.push_back(std::move(urb));
      return {};
    }
    int moved = 0;
    const int status = transfer(buffer->data, length, moved);
    finish(std::move(urb), status, moved);
    return {};
  }

  int transfer(std::uint8_t* setupAndData, std::size_t length, int& moved) {
    if (length < kSetupSize) return -EPIPE;
    const std::span data(setupAndData + kSetupSize, length - kSetupSize);
    std::size_t done = data.size();
    const bool isIn = (setupAndData[0] & 0x80) != 0;
    switch (isIn ? firmware_.reply(data, done) : firmware_.receive(data)) {
      case firmware::TransferResult::Done:
        moved = static_cast<int>(done);
        return 0;
      case firmware::TransferResult::Stalled:
        return -EPIPE;
      case firmware::TransferResult::Gone:
        return -EPROTO;
    }
    return -EPROTO;
  }

  void finish(Data urb, int status, int moved) {
    auto& fields = *reinterpret_cast<usbdevfs_urb*>(urb->data);
    fields.status = status;
    fields.actual_length = moved;
    ready_.push_back(std::move(urb));
    drain();
  }

  Answer reap(UMockdevIoctlData* argument) {
    if (ready_.empty()) return {-1, gone_ ? ENODEV : EAGAIN};
    const auto urb = std::move(ready_.front());
    ready_.pop_front();
    const auto pointer = resolve(argument, 0, sizeof(void*));
    umockdev_ioctl_data_set_ptr(pointer.get(), 0, urb.get());
    if (ready_.empty() && !gone_) fill();
    return {};
  }

  Answer discard(UMockdevIoctlData* argument) {
    if (gone_) return {-1, ENODEV};
    const auto found = std::find_if(pending_.begin(), pending_.end(), [&](const Data& urb) {
      return urb->client_addr == *reinterpret_cast<gulong*>(argument->data);
    });
    if (found == pending_.end()) return {-1, EINVAL};
    finish(std::move(*found), -ENOENT, 0);
    pending_.erase(found);
    return {};
  }

  void fill() const {
    const std::array<char, kSmallestPipe> nothing{};
    while (::write(fifo_, nothing.data(), nothing.size()) > 0) continue;
  }

  void drain() const {
    std::array<char, kSmallestPipe> nothing{};
    while (::read(fifo_, nothing.data(), nothing.size()) > 0) continue;
  }

  std::mutex mutex_;
  UMockdevIoctlBase* handler_ = umockdev_ioctl_base_new();
  firmware::Firmware& firmware_;
  TransferHooks hooks_;
  std::string realPath_;
  int fifo_ = -1;
  bool gone_ = false;
  bool hanging_ = false;
  std::vector<Data> pending_;  ///< submitted, never to be answered
  std::deque<Data> ready_;     ///< waiting to be fetched
};

struct MockUsbBus::Testbed {
  UMockdevTestbed* bed = umockdev_testbed_new();
  std::filesystem::path root;
  Testbed() {
    gchar* path = umockdev_testbed_get_root_dir(bed);
    root = path;
    g_free(path);
  }
  ~Testbed() { g_object_unref(bed); }
  Testbed(const Testbed&) = delete;
  Testbed& operator=(const Testbed&) = delete;
};

MockUsbBus::MockUsbBus() : testbed_(std::make_unique<Testbed>()) {
  // Only now: the answer is kept from the first time it is asked for.
  if (!umockdev_in_mock_environment()) throw std::runtime_error("umockdev is not preloaded");
}

MockUsbBus::~MockUsbBus() = default;

void MockUsbBus::plugIn(const std::string& socket, firmware::Firmware& firmware, std::uint8_t configuration,
                        std::uint16_t vendorId) {
  const auto path = nodePath(busOf(socket), ++lastDeviceNumber_);
  const auto realPath = testbed_->root.string() + path;
  std::filesystem::create_directories(std::filesystem::path(realPath).parent_path());
  firmware.powerCycle();
  const auto call = [socket](const TransferHook& hook) {
    if (hook) hook(socket);
  };
  auto node = std::make_shared<MockUsbNode>(
      testbed_->bed, realPath, path, firmware,
      TransferHooks{[this, call] { call(beforeTransfer_); }, [this, call] { call(afterSubmit_); }});
  nodes_[socket] = node;
  add(socket, touchscreenDescriptors(vendorId, firmware.stored().productId), configuration, node);
}

void MockUsbBus::unplug(const std::string& socket) {
  const auto found = nodes_.find(socket);
  if (found == nodes_.end()) return;
  found->second->vanish();
  left_.push_back(found->second);  // open handles may still ask it
  nodes_.erase(found);
  const auto sysPath = sysPaths_.at(socket);
  sysPaths_.erase(socket);
  umockdev_testbed_uevent(testbed_->bed, sysPath.c_str(), "remove");
  umockdev_testbed_remove_device(testbed_->bed, sysPath.c_str());
}

std::string MockUsbBus::nodeOf(const std::string& socket) const { return nodes_.at(socket)->devicePath; }

void MockUsbBus::setHanging(const std::string& socket, bool on) { nodes_.at(socket)->setHanging(on); }

std::string MockUsbBus::pathOf(const std::string& name) {
  const auto found = sysPaths_.find(name);
  if (found != sysPaths_.end()) return found->second;
  ++lastDeviceNumber_;
  return add(name, hubDescriptors(), 1, nullptr);
}

std::string MockUsbBus::add(const std::string& name, const std::string& descriptors,
                            std::uint8_t configuration, std::shared_ptr<MockUsbNode> node) {
  const int bus = busOf(name);
  const int number = lastDeviceNumber_;
  const auto parentName = parentOf(name);
  const auto parent = parentName.empty() ? std::string() : pathOf(parentName);
  const auto sysPath = (parent.empty() ? "/sys/devices" : parent) + "/" + name;
  // The event goes out as soon as the device is added, and its reader wants all of this at once.
  const auto real = testbed_->root.string() + sysPath;
  std::filesystem::create_directories(real);
  std::ofstream(real + "/descriptors", std::ios::binary) << descriptors;

  const auto idAt = [&](std::size_t offset) {
    return formatted("%04x", std::uint8_t(descriptors[offset]) | std::uint8_t(descriptors[offset + 1]) << 8);
  };
  std::vector<std::string> attributes;
  for (const auto& [key, value] :
       {std::pair<std::string, std::string>{"idVendor", idAt(8)},
        {"idProduct", idAt(10)},
        {"busnum", std::to_string(bus)},
        {"devnum", std::to_string(number)},
        {"speed", "12"},
        {"bConfigurationValue", configuration == 0 ? "" : std::to_string(configuration)},
        {"bNumConfigurations", "1"}})
    attributes.insert(attributes.end(), {key, value});
  std::vector<std::string> properties{
      "DEVTYPE", "usb_device",           "DEVNAME", node ? node->devicePath : nodePath(bus, number),
      "BUSNUM",  formatted("%03d", bus), "DEVNUM",  formatted("%03d", number)};
  gchar* added = umockdev_testbed_add_devicev(testbed_->bed, "usb", name.c_str(),
                                              parent.empty() ? nullptr : parent.c_str(),
                                              listOf(attributes).data(), listOf(properties).data());
  if (added == nullptr) throw std::runtime_error("cannot add " + name);
  sysPaths_[name] = added;
  g_free(added);
  return sysPaths_[name];
}

}  // namespace touchpanel::testing
