#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "firmware/Firmware.h"

namespace touchpanel::testing {

class MockUsbNode;

/// A USB bus in user space for the real libusb: sysfs entries, device nodes and uevents come from umockdev,
/// and behind each node a touchscreen's firmware answers control transfers. Needs umockdev's library in
/// LD_PRELOAD, and no privileges. One at a time in a process.
class MockUsbBus {
 public:
  /// Called for each control transfer of any device, on another thread while the caller of the transfer
  /// waits; may unplug. `socket` is the device's.
  using TransferHook = std::function<void(const std::string& socket)>;

  MockUsbBus();
  ~MockUsbBus();
  MockUsbBus(const MockUsbBus&) = delete;
  MockUsbBus& operator=(const MockUsbBus&) = delete;

  /// Plugs a touchscreen into `socket`, named as the kernel names its devices: "1-2", or "1-2.4" behind a
  /// hub, which is there when needed. `configuration` 0 is a device that is not configured. `firmware` must
  /// outlive the last transfer.
  void plugIn(const std::string& socket, firmware::Firmware& firmware, std::uint8_t configuration = 1,
              std::uint16_t vendorId = 0x6666);
  void unplug(const std::string& socket);

  /// The path of the device's node, as programs on the bus see it.
  std::string nodeOf(const std::string& socket) const;
  void setBeforeTransfer(TransferHook before) { beforeTransfer_ = std::move(before); }
  /// The same, once the transfer is under way.
  void setAfterSubmit(TransferHook after) { afterSubmit_ = std::move(after); }
  /// While on, transfers of the device are taken and never answered.
  void setHanging(const std::string& socket, bool on);

 private:
  struct Testbed;
  std::string pathOf(const std::string& name);
  std::string add(const std::string& name, const std::string& descriptors, std::uint8_t configuration,
                  std::shared_ptr<MockUsbNode> node);

  std::unique_ptr<Testbed> testbed_;
  TransferHook beforeTransfer_;
  TransferHook afterSubmit_;
  std::map<std::string, std::string> sysPaths_;
  std::map<std::string, std::shared_ptr<MockUsbNode>> nodes_;  ///< by socket
  std::vector<std::shared_ptr<MockUsbNode>> left_;  ///< unplugged; whoever has them open may still ask
  int lastDeviceNumber_ = 0;
};

}  // namespace touchpanel::testing
