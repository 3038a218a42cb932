#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include <umockdev.h>

#include "firmware/Firmware.h"

namespace touchpanel::testing {

/// Called on the thread that answers, around each transfer that is handed in.
struct TransferHooks {
  std::function<void()> before;
  std::function<void()> afterSubmit;  ///< the transfer is under way, or done
};

/// The node of one USB device on a mock bus: takes control transfers as the kernel does, one URB at a time,
/// and has them answered by a touchscreen's firmware.
///
/// libusb waits for the node to become writable, and a node that always is would keep it spinning. So the
/// node is a FIFO that is kept full and drained while a URB is ready to be fetched.
class MockUsbNode {
 public:
  /// `realPath` is where the node is made.
  MockUsbNode(const std::string& realPath, firmware::Firmware& firmware, TransferHooks hooks);
  ~MockUsbNode();
  MockUsbNode(const MockUsbNode&) = delete;
  MockUsbNode& operator=(const MockUsbNode&) = delete;

  void attach(UMockdevTestbed* testbed, const std::string& devicePath);
  /// The device is gone: what is under way ends at once, and every call fails from now on.
  void vanish();
  void setHanging(bool on);

  const std::string& devicePath() const { return devicePath_; }

 private:
  struct Unref {
    void operator()(UMockdevIoctlData* data) const { umockdev_ioctl_data_unref(data); }
  };
  using Data = std::unique_ptr<UMockdevIoctlData, Unref>;
  struct Answer {
    long result = 0;
    int error = 0;
  };

  static gboolean handle(UMockdevIoctlBase* base, UMockdevIoctlClient* client, gpointer node);
  static Data resolve(UMockdevIoctlData* data, std::size_t offset, std::size_t length);
  Answer answer(unsigned long request, UMockdevIoctlData* argument);
  Answer submit(UMockdevIoctlData* argument);
  Answer reap(UMockdevIoctlData* argument);
  Answer discard(UMockdevIoctlData* argument);
  int transfer(std::uint8_t* setupAndData, std::size_t length, int& moved);
  void finish(Data urb, int status, int moved);
  void fill() const;
  void drain() const;

  std::mutex mutex_;
  UMockdevIoctlBase* handler_ = nullptr;
  firmware::Firmware& firmware_;
  TransferHooks hooks_;
  std::string realPath_;
  std::string devicePath_;
  int fifo_ = -1;
  bool gone_ = false;
  bool hanging_ = false;
  std::vector<Data> pending_;  ///< submitted, never to be answered
  std::deque<Data> ready_;     ///< waiting to be fetched
};

}  // namespace touchpanel::testing
