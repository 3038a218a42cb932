#include "providers/linux/input/EvdevInputs.h"

#include <cerrno>
#include <ctime>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <unistd.h>

#include "providers/linux/input/FrameAssembler.h"
#include "providers/linux/loop/ErrnoStatus.h"
#include "providers/linux/loop/FileDescriptor.h"

namespace touchpanel {

namespace {
struct FreeEvdev {
  void operator()(libevdev* device) const { libevdev_free(device); }
};
using Evdev = std::unique_ptr<libevdev, FreeEvdev>;

bool hasSlots(const libevdev* device) {
  return libevdev_has_event_code(device, EV_ABS, ABS_MT_SLOT) &&
         libevdev_has_event_code(device, EV_ABS, ABS_MT_POSITION_X) &&
         libevdev_has_event_code(device, EV_ABS, ABS_MT_POSITION_Y);
}

bool hasSingleTouch(const libevdev* device) {
  return libevdev_has_event_code(device, EV_ABS, ABS_X) && libevdev_has_event_code(device, EV_ABS, ABS_Y) &&
         libevdev_has_event_code(device, EV_KEY, BTN_TOUCH);
}

bool isMouse(const libevdev* device) {
  return libevdev_has_event_code(device, EV_KEY, BTN_LEFT) &&
         (libevdev_has_event_code(device, EV_REL, REL_X) || libevdev_has_event_code(device, EV_ABS, ABS_X));
}

AxisRange rangeOf(const libevdev* device, unsigned axis) {
  return {libevdev_get_abs_minimum(device, axis), libevdev_get_abs_maximum(device, axis)};
}

std::chrono::microseconds timeOf(const input_event& event) {
  return std::chrono::seconds(event.input_event_sec) + std::chrono::microseconds(event.input_event_usec);
}

class EvdevInput final : public TouchInput {
 public:
  EvdevInput(EventLoop& loop, Diagnostics& diagnostics, FileDescriptor file, Evdev device, std::string node)
      : loop_(loop),
        diagnostics_(diagnostics),
        file_(std::move(file)),
        device_(std::move(device)),
        node_(std::move(node)),
        catchUp_(loop.create([this] { feedCurrentState(); })),
        watch_(loop.watch(file_.get(), [this] { drain(); })) {}

  bool reportsTouches() const override { return hasSlots(device_.get()) || hasSingleTouch(device_.get()); }

  void listen(FrameListener& listener) override {
    const bool slots = hasSlots(device_.get());
    assembler_.emplace(slots, rangeOf(device_.get(), slots ? ABS_MT_POSITION_X : ABS_X),
                       rangeOf(device_.get(), slots ? ABS_MT_POSITION_Y : ABS_Y),
                       [&listener](const RawFrame& frame) { listener.frame(frame); });
    started_ = false;
    catchUp_->arm(loop_.now());
  }

 private:
  void drain();
  void feedCurrentState();
  void feed(unsigned type, unsigned code, int value, std::chrono::microseconds time) {
    assembler_->event(static_cast<std::uint16_t>(type), static_cast<std::uint16_t>(code), value, time);
  }

  EventLoop& loop_;
  Diagnostics& diagnostics_;
  FileDescriptor file_;
  Evdev device_;
  std::string node_;
  std::optional<FrameAssembler> assembler_;
  bool started_ = false;
  bool droppedBefore_ = false;
  std::unique_ptr<Timer> catchUp_;
  std::unique_ptr<EventLoop::Watch> watch_;
};

/// The kernel reports only changes, so the state from before the first reading is fed in once.
void EvdevInput::feedCurrentState() {
  if (started_ || !assembler_) return;
  started_ = true;
  const auto now = loop_.now();
  const int slots = hasSlots(device_.get()) ? libevdev_get_num_slots(device_.get()) : 0;
  for (int slot = 0; slot < slots; ++slot) {
    feed(EV_ABS, ABS_MT_SLOT, slot, now);
    for (const unsigned code : {ABS_MT_TRACKING_ID, ABS_MT_POSITION_X, ABS_MT_POSITION_Y})
      feed(EV_ABS, code, libevdev_get_slot_value(device_.get(), static_cast<unsigned>(slot), code), now);
  }
  if (slots > 0) feed(EV_ABS, ABS_MT_SLOT, libevdev_get_current_slot(device_.get()), now);
  for (const unsigned code : {ABS_X, ABS_Y})
    feed(EV_ABS, code, libevdev_get_event_value(device_.get(), EV_ABS, code), now);
  feed(EV_KEY, BTN_TOUCH, libevdev_get_event_value(device_.get(), EV_KEY, BTN_TOUCH), now);
  feed(EV_SYN, SYN_REPORT, 0, now);
}

void EvdevInput::drain() {
  feedCurrentState();
  unsigned mode = LIBEVDEV_READ_FLAG_NORMAL;
  input_event event{};
  while (true) {
    const int result = libevdev_next_event(device_.get(), mode, &event);
    if (result == -EINTR) continue;
    if (result == -EAGAIN && mode == LIBEVDEV_READ_FLAG_NORMAL) return;
    if (result == -EAGAIN) {
      mode = LIBEVDEV_READ_FLAG_NORMAL;  // caught up
      continue;
    }
    if (result < 0) {
      // Unplugged: udev will say so. Until then the descriptor stays readable, and would keep the loop busy.
      watch_->stop();
      return;
    }
    if (result == LIBEVDEV_READ_STATUS_SYNC && mode == LIBEVDEV_READ_FLAG_NORMAL) {
      mode = LIBEVDEV_READ_FLAG_SYNC;
      if (!std::exchange(droppedBefore_, true))
        diagnostics_.line(node_ + ": touches came faster than they were read; caught up.");
      continue;
    }
    if (assembler_) feed(event.type, event.code, event.value, timeOf(event));
  }
}
}  // namespace

Status EvdevInputs::open(const std::string& node, std::unique_ptr<TouchInput>& input) {
  FileDescriptor file(::open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file) return statusOfErrno(errno);
  libevdev* raw = nullptr;
  if (const int result = libevdev_new_from_fd(file.get(), &raw); result < 0)
    return result == -ENOTTY || result == -EINVAL ? kErrorUnsupported : statusOfErrno(-result);
  Evdev device(raw);
  if (!hasSlots(raw) && !hasSingleTouch(raw) && !isMouse(raw)) return kErrorUnsupported;
  if (const int result = libevdev_grab(raw, LIBEVDEV_GRAB); result < 0) return statusOfErrno(-result);
  if (const int result = libevdev_set_clock_id(raw, CLOCK_MONOTONIC); result < 0)
    return statusOfErrno(-result);
  input = std::make_unique<EvdevInput>(loop_, diagnostics_, std::move(file), std::move(device), node);
  return kSuccess;
}

}  // namespace touchpanel
