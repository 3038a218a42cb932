// The least that anything can do between a touchscreen and the desktop: grab an input device, make a pointer
// with the same absolute axes, and write every frame to it as it came. "latency" compares the service with it.
//
// Usage: grab_and_copy /dev/input/eventN. Ends when the device is gone.

#include <array>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <linux/input.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr std::size_t kEventsInAFrame = 64;

bool copyAxis(int from, int to, unsigned axis) {
  uinput_abs_setup setup{};
  setup.code = static_cast<__u16>(axis);
  return ::ioctl(from, EVIOCGABS(axis), &setup.absinfo) == 0 && ::ioctl(to, UI_ABS_SETUP, &setup) == 0;
}

int pointerLike(int input) {
  const int pointer = ::open("/dev/uinput", O_WRONLY | O_CLOEXEC);
  if (pointer < 0) return -1;
  uinput_setup setup{};
  setup.id.bustype = BUS_VIRTUAL;
  std::strncpy(setup.name, "Bare copy", sizeof setup.name - 1);
  const bool made = ::ioctl(pointer, UI_SET_EVBIT, EV_KEY) == 0 &&
                    ::ioctl(pointer, UI_SET_KEYBIT, BTN_LEFT) == 0 &&
                    ::ioctl(pointer, UI_SET_EVBIT, EV_ABS) == 0 && copyAxis(input, pointer, ABS_X) &&
                    copyAxis(input, pointer, ABS_Y) && ::ioctl(pointer, UI_DEV_SETUP, &setup) == 0 &&
                    ::ioctl(pointer, UI_DEV_CREATE) == 0;
  return made ? pointer : -1;
}

/// Leaves of a frame what a pointer has: position and the touch as its left button.
std::size_t kept(std::array<input_event, kEventsInAFrame>& events, std::size_t count) {
  std::size_t left = 0;
  for (std::size_t i = 0; i < count; ++i) {
    input_event event = events[i];
    if (event.type == EV_KEY && event.code == BTN_TOUCH) event.code = BTN_LEFT;
    const bool position = event.type == EV_ABS && (event.code == ABS_X || event.code == ABS_Y);
    if (position || event.type == EV_KEY || event.type == EV_SYN) events[left++] = event;
  }
  return left;
}

}  // namespace

int main(int count, char** words) {
  const int input = count == 2 ? ::open(words[1], O_RDONLY | O_CLOEXEC) : -1;
  const int pointer = input < 0 ? -1 : pointerLike(input);
  if (pointer < 0 || ::ioctl(input, EVIOCGRAB, 1) != 0) {
    std::perror("grab_and_copy");
    return 1;
  }
  std::array<input_event, kEventsInAFrame> events;
  for (;;) {
    const ssize_t got = ::read(input, events.data(), sizeof events);
    if (got <= 0) return 0;
    const std::size_t left = kept(events, static_cast<std::size_t>(got) / sizeof(input_event));
    if (::write(pointer, events.data(), left * sizeof(input_event)) < 0) return 1;
  }
}
