#include "providers/linux/loop/EventLoop.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <optional>
#include <system_error>

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <systemd/sd-event.h>

#include "providers/linux/loop/FileDescriptor.h"
#include "providers/linux/loop/MonotonicTime.h"

namespace touchpanel {

namespace {
void check(int result, const char* what) {
  if (result < 0) throw std::system_error(-result, std::generic_category(), what);
}

struct SourceUnref {
  void operator()(sd_event_source* source) const { sd_event_source_disable_unref(source); }
};
using Source = std::unique_ptr<sd_event_source, SourceUnref>;

/// No exception may pass through the C library; one that gets here ends the loop, and with it the service.
template <typename Call>
int guarded(sd_event_source* source, Call call) noexcept {
  try {
    call();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, error.what());
    sd_event_exit(sd_event_source_get_event(source), 1);
  } catch (...) {
    sd_event_exit(sd_event_source_get_event(source), 1);
  }
  return 0;
}

class LoopTimer final : public Timer {
 public:
  LoopTimer(sd_event* event, std::function<void()> callback) : callback_(std::move(callback)) {
    sd_event_source* source = nullptr;
    check(sd_event_add_time(event, &source, CLOCK_MONOTONIC, 0, 1, fired, this), "timer");
    source_.reset(source);
    sd_event_source_set_priority(source, SD_EVENT_PRIORITY_NORMAL + 1);
    disarm();
  }
  void arm(std::chrono::microseconds when) override {
    sd_event_source_set_time(source_.get(), static_cast<std::uint64_t>(when.count()));
    sd_event_source_set_enabled(source_.get(), SD_EVENT_ONESHOT);
  }
  void disarm() override { sd_event_source_set_enabled(source_.get(), SD_EVENT_OFF); }

 private:
  static int fired(sd_event_source* source, std::uint64_t, void* self) {
    return guarded(source, [self] { static_cast<LoopTimer*>(self)->callback_(); });
  }

  std::function<void()> callback_;
  Source source_;
};

class DescriptorWatch final : public EventLoop::Watch {
 public:
  DescriptorWatch(sd_event* event, int descriptor, std::function<void()> ready) : ready_(std::move(ready)) {
    sd_event_source* source = nullptr;
    check(sd_event_add_io(event, &source, descriptor, EPOLLIN, happened, this), "watch");
    source_.reset(source);
  }
  void prepareWith(sd_event* event, std::function<EventLoop::PollRequest()> prepare) {
    prepare_ = std::move(prepare);
    sd_event_source* deadline = nullptr;
    check(sd_event_add_time(event, &deadline, CLOCK_MONOTONIC, 0, 0, elapsed, this), "timer");
    deadline_.reset(deadline);
    sd_event_source_set_enabled(deadline, SD_EVENT_OFF);
    check(sd_event_source_set_prepare(source_.get(), aboutToWait), "watch");
  }

  void stop() override {
    sd_event_source_set_enabled(source_.get(), SD_EVENT_OFF);
    if (deadline_) sd_event_source_set_enabled(deadline_.get(), SD_EVENT_OFF);
  }

 private:
  static int happened(sd_event_source* source, int, std::uint32_t, void* self) {
    return guarded(source, [self] { static_cast<DescriptorWatch*>(self)->ready_(); });
  }
  static int elapsed(sd_event_source* source, std::uint64_t, void* self) {
    return guarded(source, [self] { static_cast<DescriptorWatch*>(self)->ready_(); });
  }
  static int aboutToWait(sd_event_source* source, void* self) {
    return guarded(source, [self] { static_cast<DescriptorWatch*>(self)->prepare(); });
  }
  void prepare() {
    const auto request = prepare_();
    sd_event_source_set_io_events(source_.get(), request.events);
    if (request.deadlineUs != ~0ULL) sd_event_source_set_time(deadline_.get(), request.deadlineUs);
    sd_event_source_set_enabled(deadline_.get(),
                                request.deadlineUs != ~0ULL ? SD_EVENT_ONESHOT : SD_EVENT_OFF);
  }

  std::function<void()> ready_;
  std::function<EventLoop::PollRequest()> prepare_;
  Source deadline_;
  Source source_;
};

class LoopNotice final : public Notice {
 public:
  LoopNotice(EventLoop& loop, std::function<void()> callback)
      : callback_(std::move(callback)), given_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    check(given_ ? 0 : -errno, "notice");
    watch_ = loop.watch(given_.get(), [this] {
      eventfd_t ignored = 0;
      ::eventfd_read(given_.get(), &ignored);
      callback_();
    });
  }
  void give() override { ::eventfd_write(given_.get(), 1); }

 private:
  std::function<void()> callback_;
  FileDescriptor given_;
  std::unique_ptr<EventLoop::Watch> watch_;
};
}  // namespace

EventLoop::EventLoop() { check(sd_event_new(&event_), "event loop"); }

EventLoop::~EventLoop() { sd_event_unref(event_); }

std::chrono::microseconds EventLoop::now() const { return monotonicTime(); }

std::unique_ptr<Timer> EventLoop::create(std::function<void()> callback) {
  return std::make_unique<LoopTimer>(event_, std::move(callback));
}

std::unique_ptr<Notice> EventLoop::createNotice(std::function<void()> callback) {
  return std::make_unique<LoopNotice>(*this, std::move(callback));
}

std::unique_ptr<EventLoop::Watch> EventLoop::watch(int descriptor, std::function<void()> ready) {
  return std::make_unique<DescriptorWatch>(event_, descriptor, std::move(ready));
}

std::unique_ptr<EventLoop::Watch> EventLoop::watch(int descriptor, std::function<PollRequest()> prepare,
                                                   std::function<void()> ready) {
  auto watch = std::make_unique<DescriptorWatch>(event_, descriptor, std::move(ready));
  watch->prepareWith(event_, std::move(prepare));
  return watch;
}

void EventLoop::stopOn(std::initializer_list<int> signals) {
  // Without a handler sd-event ends the loop with the status given as user data.
  for (const int signal : signals)
    check(sd_event_add_signal(event_, nullptr, signal, nullptr, nullptr), "signal");
}

void EventLoop::runOnce(std::chrono::microseconds longest) {
  check(sd_event_run(event_, static_cast<std::uint64_t>(longest.count())), "event loop");
}

int EventLoop::run() { return sd_event_loop(event_); }

void EventLoop::stop() { sd_event_exit(event_, 0); }

}  // namespace touchpanel
