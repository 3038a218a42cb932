#include "support/MockUsbNode.h"

#include <sys/ioctl.h>
// After <sys/ioctl.h>, whose macros it uses.
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <stdexcept>

#include <fcntl.h>
#include <linux/usbdevice_fs.h>
#include <sys/stat.h>
#include <unistd.h>

namespace touchpanel::testing {
namespace {

constexpr std::size_t kSetupSize = 8;
constexpr int kSmallestPipe = 4096;

}  // namespace

MockUsbNode::MockUsbNode(const std::string& realPath, firmware::Firmware& firmware, TransferHooks hooks)
    : firmware_(firmware), hooks_(std::move(hooks)), realPath_(realPath) {
  if (::mkfifo(realPath.c_str(), 0600) != 0) throw std::runtime_error("cannot make " + realPath);
  fifo_ = ::open(realPath.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  if (fifo_ < 0) throw std::runtime_error("cannot open " + realPath);
  ::fcntl(fifo_, F_SETPIPE_SZ, kSmallestPipe);
  fill();
}

MockUsbNode::~MockUsbNode() {
  if (handler_ != nullptr) g_object_unref(handler_);
  ::close(fifo_);
}

void MockUsbNode::attach(UMockdevTestbed* testbed, const std::string& path) {
  devicePath_ = path;
  handler_ = umockdev_ioctl_base_new();
  g_signal_connect(handler_, "handle-ioctl", G_CALLBACK(&MockUsbNode::handle), this);
  GError* error = nullptr;
  if (!umockdev_testbed_attach_ioctl(testbed, path.c_str(), handler_, &error))
    throw std::runtime_error(error->message);
}

void MockUsbNode::vanish() {
  const std::lock_guard lock(mutex_);
  gone_ = true;
  for (auto& urb : pending_) finish(std::move(urb), -ESHUTDOWN, 0);
  pending_.clear();
  drain();
  ::unlink(realPath_.c_str());
}

void MockUsbNode::setHanging(bool on) {
  const std::lock_guard lock(mutex_);
  hanging_ = on;
}

gboolean MockUsbNode::handle(UMockdevIoctlBase*, UMockdevIoctlClient* client, gpointer node) {
  auto& self = *static_cast<MockUsbNode*>(node);
  const auto request = umockdev_ioctl_client_get_request(client);
  // Outside the lock: what is asked for here may be this very device's unplugging.
  if (request == USBDEVFS_SUBMITURB) self.hooks_.before();
  const auto answer = self.answer(request, umockdev_ioctl_client_get_arg(client));
  umockdev_ioctl_client_complete(client, answer.result, answer.error);
  if (request == USBDEVFS_SUBMITURB) self.hooks_.afterSubmit();
  return TRUE;
}

MockUsbNode::Data MockUsbNode::resolve(UMockdevIoctlData* data, std::size_t offset, std::size_t length) {
  return Data(umockdev_ioctl_data_resolve(data, offset, length, nullptr));
}

MockUsbNode::Answer MockUsbNode::answer(unsigned long request, UMockdevIoctlData* argument) {
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

MockUsbNode::Answer MockUsbNode::submit(UMockdevIoctlData* argument) {
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

int MockUsbNode::transfer(std::uint8_t* setupAndData, std::size_t length, int& moved) {
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

void MockUsbNode::finish(Data urb, int status, int moved) {
  auto& fields = *reinterpret_cast<usbdevfs_urb*>(urb->data);
  fields.status = status;
  fields.actual_length = moved;
  ready_.push_back(std::move(urb));
  drain();
}

MockUsbNode::Answer MockUsbNode::reap(UMockdevIoctlData* argument) {
  if (ready_.empty()) return {-1, gone_ ? ENODEV : EAGAIN};
  const auto urb = std::move(ready_.front());
  ready_.pop_front();
  const auto pointer = resolve(argument, 0, sizeof(void*));
  umockdev_ioctl_data_set_ptr(pointer.get(), 0, urb.get());
  if (ready_.empty() && !gone_) fill();
  return {};
}

MockUsbNode::Answer MockUsbNode::discard(UMockdevIoctlData* argument) {
  if (gone_) return {-1, ENODEV};
  const auto found = std::find_if(pending_.begin(), pending_.end(), [&](const Data& urb) {
    return urb->client_addr == *reinterpret_cast<gulong*>(argument->data);
  });
  if (found == pending_.end()) return {-1, EINVAL};
  finish(std::move(*found), -ENOENT, 0);
  pending_.erase(found);
  return {};
}

void MockUsbNode::fill() const {
  const std::array<char, kSmallestPipe> nothing{};
  while (::write(fifo_, nothing.data(), nothing.size()) > 0) continue;
}

void MockUsbNode::drain() const {
  std::array<char, kSmallestPipe> nothing{};
  while (::read(fifo_, nothing.data(), nothing.size()) > 0) continue;
}

}  // namespace touchpanel::testing
