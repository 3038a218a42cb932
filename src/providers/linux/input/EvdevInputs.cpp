#include "providers/linux/input/EvdevInputs.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "providers/linux/input/FrameAssembler.h"
#include "providers/linux/input/NodeReports.h"
#include "providers/linux/loop/ErrnoStatus.h"
#include "providers/linux/loop/FileDescriptor.h"
#include "providers/linux/loop/MonotonicTime.h"

namespace touchpanel {

namespace {
struct FreeEvdev {
  void operator()(libevdev* device) const { libevdev_free(device); }
};
using Evdev = std::unique_ptr<libevdev, FreeEvdev>;

std::chrono::microseconds timeOf(const input_event& event) {
  return std::chrono::seconds(event.input_event_sec) + std::chrono::microseconds(event.input_event_usec);
}

std::int32_t axisValue(int descriptor, unsigned axis) {
  input_absinfo info{};
  return ::ioctl(descriptor, EVIOCGABS(axis), &info) < 0 ? 0 : info.value;
}

/// Whether a button is held, or a finger is down, on a device that reports that as a button.
bool isHeld(int descriptor, unsigned button) {
  std::array<std::uint8_t, KEY_MAX / 8 + 1> keys{};
  if (::ioctl(descriptor, EVIOCGKEY(sizeof keys), keys.data()) < 0) return false;
  return (keys[button / 8] >> button % 8 & 1U) != 0;
}
bool isTouched(int descriptor) { return isHeld(descriptor, BTN_TOUCH) || isHeld(descriptor, BTN_LEFT); }

class EvdevInput final : public TouchInput, private TouchLoop::Source {
 public:
  EvdevInput(TouchLoop& touches, Notices& notices, Diagnostics& diagnostics, FileDescriptor file,
             const libevdev* device, const NodeReports& reports, const std::string& node)
      : touches_(touches),
        file_(std::move(file)),
        reports_(reports),
        slots_(reports.touches == InputReports::MultiTouchB
                   ? static_cast<std::size_t>(libevdev_get_num_slots(device)) + 1
                   : 0),
        dropped_(notices.createNotice([&diagnostics, node, told = false]() mutable {
          if (!std::exchange(told, true))
            diagnostics.line(node + ": touches came faster than they were read; caught up.");
        })) {
    touches_.add(*this);
  }
  ~EvdevInput() override { touches_.remove(*this); }
  EvdevInput(const EvdevInput&) = delete;
  EvdevInput& operator=(const EvdevInput&) = delete;

  InputReports reports() const override { return reports_.touches; }
  void listen(FrameListener* listener) override {
    std::optional<FrameAssembler> assembler;
    if (listener)
      assembler.emplace(reports_.touches, reports_.x, reports_.y,
                        [listener](const RawFrame& frame) { listener->frame(frame); });
    touches_.run([&] {
      listener_ = listener;
      assembler_.swap(assembler);
      if (assembler_) catchUp();
    });
  }

 private:
  int descriptor() const override { return file_.get(); }
  bool read(std::chrono::microseconds& now) override;
  std::optional<std::chrono::microseconds> nextDeadline() const override {
    return listener_ ? listener_->nextDeadline() : std::nullopt;
  }
  void tick(std::chrono::microseconds now) override { listener_->tick(now); }
  void take(const input_event& event);
  void catchUp();
  void feedSlots(std::chrono::microseconds now);
  void feed(unsigned type, unsigned code, int value, std::chrono::microseconds time) {
    assembler_->event(static_cast<std::uint16_t>(type), static_cast<std::uint16_t>(code), value, time);
  }

  TouchLoop& touches_;
  FileDescriptor file_;
  NodeReports reports_;
  std::vector<std::int32_t> slots_;  ///< room for a question about all slots: its code, then a value for each
  std::unique_ptr<Notice> dropped_;
  // The touch thread's own.
  FrameListener* listener_ = nullptr;
  std::optional<FrameAssembler> assembler_;
  bool skipping_ = false;  ///< until the end of a frame of which events were dropped
  std::array<input_event, 64> events_{};
};

bool EvdevInput::read(std::chrono::microseconds& now) {
  // One call: what it leaves behind keeps the descriptor readable.
  const auto size = ::read(file_.get(), events_.data(), sizeof events_);
  if (size < 0) return errno == EINTR;  // else unplugged: udev will say so
  const auto count = static_cast<std::size_t>(size) / sizeof(input_event);
  for (std::size_t i = 0; i < count; ++i)
    if (assembler_) take(events_[i]);
  if (count > 0) now = timeOf(events_[count - 1]);
  return count > 0;
}

void EvdevInput::take(const input_event& event) {
  const bool isReport = event.type == EV_SYN && event.code == SYN_REPORT;
  if (event.type == EV_SYN && event.code == SYN_DROPPED) {
    skipping_ = true;
    dropped_->give();
  } else if (!skipping_) {
    feed(event.type, event.code, event.value, timeOf(event));
  } else if (isReport) {
    skipping_ = false;
    catchUp();
  }
}

/// The kernel reports only changes, so what holds now is asked for and fed in.
void EvdevInput::catchUp() {
  const auto now = monotonicTime();
  feedSlots(now);
  for (const unsigned axis : {ABS_X, ABS_Y}) feed(EV_ABS, axis, axisValue(file_.get(), axis), now);
  for (const unsigned button : {BTN_TOUCH, BTN_LEFT}) feed(EV_KEY, button, isHeld(file_.get(), button), now);
  feed(EV_SYN, SYN_REPORT, 0, now);
}

void EvdevInput::feedSlots(std::chrono::microseconds now) {
  if (slots_.empty()) return;
  for (const unsigned code : {ABS_MT_TRACKING_ID, ABS_MT_POSITION_X, ABS_MT_POSITION_Y}) {
    slots_[0] = static_cast<std::int32_t>(code);
    const auto size = slots_.size() * sizeof(std::int32_t);
    if (::ioctl(file_.get(), EVIOCGMTSLOTS(size), slots_.data()) < 0) continue;
    for (std::size_t slot = 0; slot + 1 < slots_.size(); ++slot) {
      feed(EV_ABS, ABS_MT_SLOT, static_cast<int>(slot), now);
      feed(EV_ABS, code, slots_[slot + 1], now);
    }
  }
  feed(EV_ABS, ABS_MT_SLOT, axisValue(file_.get(), ABS_MT_SLOT), now);
}
}  // namespace

Status EvdevInputs::open(const std::string& node, std::unique_ptr<TouchInput>& input) {
  FileDescriptor file(::open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file) return statusOfErrno(errno);
  libevdev* raw = nullptr;
  if (const int result = libevdev_new_from_fd(file.get(), &raw); result < 0)
    return result == -ENOTTY || result == -EINVAL ? kErrorUnsupported : statusOfErrno(-result);
  const Evdev device(raw);
  const auto reports = reportsOf(*raw);
  if (!reports.isPointing) return kErrorUnsupported;
  if (isTouched(file.get())) return kErrorBusy;
  if (::ioctl(file.get(), EVIOCGRAB, 1) < 0) return statusOfErrno(errno);
  // A finger that landed meanwhile was seen by the desktop, too. Closing the node gives it back.
  if (isTouched(file.get())) return kErrorBusy;
  if (const int result = libevdev_set_clock_id(raw, CLOCK_MONOTONIC); result < 0)
    return statusOfErrno(-result);
  if (::fcntl(file.get(), F_SETFL, 0) < 0)
    return statusOfErrno(errno);  // the touch thread sleeps in the reading
  input = std::make_unique<EvdevInput>(touches_, notices_, diagnostics_, std::move(file), raw, reports, node);
  return kSuccess;
}

}  // namespace touchpanel
