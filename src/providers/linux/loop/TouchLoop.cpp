#include "providers/linux/loop/TouchLoop.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <system_error>

#include <sys/epoll.h>
#include <sys/eventfd.h>

#include "providers/linux/loop/MonotonicTime.h"

namespace touchpanel {

namespace {
using namespace std::chrono;

void watch(int epoll, int descriptor, void* data) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.ptr = data;
  if (::epoll_ctl(epoll, EPOLL_CTL_ADD, descriptor, &event) != 0)
    throw std::system_error(errno, std::generic_category(), "epoll");
}
}  // namespace

TouchLoop::TouchLoop()
    : epoll_(::epoll_create1(EPOLL_CLOEXEC)), wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (!epoll_ || !wake_) throw std::system_error(errno, std::generic_category(), "touch thread");
  watch(epoll_.get(), wake_.get(), nullptr);
  thread_ = std::thread([this] { serve(); });
}

TouchLoop::~TouchLoop() {
  run([this] { stopping_ = true; });
  thread_.join();
}

void TouchLoop::run(const std::function<void()>& call) {
  call_ = &call;
  ::eventfd_write(wake_.get(), 1);
  done_.acquire();
}

void TouchLoop::add(Source& source) {
  watch(epoll_.get(), source.descriptor(), &source);
  auto sources = sources_;  // what allocates does so here
  sources.push_back(&source);
  run([&] { sources_.swap(sources); });
}

void TouchLoop::remove(Source& source) {
  run([&] {
    ::epoll_ctl(epoll_.get(), EPOLL_CTL_DEL, source.descriptor(), nullptr);
    std::erase(sources_, &source);
  });
}

void TouchLoop::serve() {
  while (!stopping_) {
    // One at a time: what a call removes is then never among events that were fetched before.
    epoll_event event{};
    const int ready = ::epoll_wait(epoll_.get(), &event, 1, timeoutMs());
    // Input comes before deadlines: a finger's lift that waits to be read prevents what was due.
    if (ready <= 0)
      tickDue();
    else if (!event.data.ptr)
      runCall();
    else if (auto* source = static_cast<Source*>(event.data.ptr); !source->read())
      ::epoll_ctl(epoll_.get(), EPOLL_CTL_DEL, source->descriptor(), nullptr);
  }
}

void TouchLoop::runCall() {
  eventfd_t ignored = 0;
  ::eventfd_read(wake_.get(), &ignored);
  if (const auto* call = call_.exchange(nullptr)) {
    (*call)();
    done_.release();
  }
}

int TouchLoop::timeoutMs() const {
  auto nearest = microseconds::max();
  for (const auto* source : sources_)
    if (const auto due = source->nextDeadline()) nearest = std::min(nearest, *due);
  if (nearest == microseconds::max()) return -1;
  const auto left = ceil<milliseconds>(nearest - monotonicTime()).count();
  return static_cast<int>(std::clamp<milliseconds::rep>(left, 0, std::numeric_limits<int>::max()));
}

void TouchLoop::tickDue() {
  auto now = microseconds::min();
  for (auto* source : sources_) {
    const auto due = source->nextDeadline();
    if (!due) continue;
    if (now == microseconds::min()) now = monotonicTime();
    if (*due <= now) source->tick(now);
  }
}

}  // namespace touchpanel
