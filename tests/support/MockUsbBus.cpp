#include "support/MockUsbBus.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <umockdev.h>

#include "support/MockUsbNode.h"

namespace touchpanel::testing {
namespace {

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

}  // namespace

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
      realPath, firmware,
      TransferHooks{[this, call] { call(beforeTransfer_); }, [this, call] { call(afterSubmit_); }});
  node->attach(testbed_->bed, path);
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

std::string MockUsbBus::nodeOf(const std::string& socket) const { return nodes_.at(socket)->devicePath(); }

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
  std::vector<std::string> attributes{"idVendor",
                                      idAt(8),
                                      "idProduct",
                                      idAt(10),
                                      "busnum",
                                      std::to_string(bus),
                                      "devnum",
                                      std::to_string(number),
                                      "speed",
                                      "12",
                                      "bConfigurationValue",
                                      configuration == 0 ? "" : std::to_string(configuration),
                                      "bNumConfigurations",
                                      "1"};
  std::vector<std::string> properties{
      "DEVTYPE", "usb_device",           "DEVNAME", node ? node->devicePath() : nodePath(bus, number),
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
