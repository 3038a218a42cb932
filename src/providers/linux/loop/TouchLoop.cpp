#include "providers/linux/loop/TouchLoop.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <limits>
#include <system_error>

#include <pthread.h>
#include <sys/epoll.h>

#include "providers/linux/loop/MonotonicTime.h"

namespace touchpanel {

namespace {
using namespace std::chrono;

constexpr int kInterruption = SIGUSR1;

}  // namespace

TouchLoop::TouchLoop() : epoll_(::epoll_create1(EPOLL_CLOEXEC)) {
  if (!epoll_) throw std::system_error(errno, std::generic_category(), "touch thread");
  struct sigaction interrupting {};  // not restarting what it interrupts
  interrupting.sa_handler = [](int) {};
  ::sigaction(kInterruption, &interrupting, nullptr);
  thread_ = std::thread([this] { serve(); });
}

TouchLoop::~TouchLoop() {
  run([this] { stopping_ = true; });
  thread_.join();
}

void TouchLoop::run(const std::function<void()>& call) {
  call_ = &call;
  // A signal that comes just before the thread goes to sleep is lost, so it is sent until it has worked.
  do ::pthread_kill(thread_.native_handle(), kInterruption);
  while (!done_.try_acquire_for(milliseconds(1)));
}

void TouchLoop::add(Source& source) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.ptr = &source;
  if (::epoll_ctl(epoll_.get(), EPOLL_CTL_ADD, source.descriptor(), &event) != 0)
    throw std::system_error(errno, std::generic_category(), "epoll");
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
    if (call_.load())
      runCall();
    else if (sources_.size() == 1 && !sources_.front()->isBroken_ && timeoutMs() < 0)
      readFrom(*sources_.front());
    else
      waitForAny();
  }
}

void TouchLoop::waitForAny() {
  // One at a time: what a call removes is then never among events that were fetched before.
  epoll_event event{};
  const int ready = ::epoll_wait(epoll_.get(), &event, 1, timeoutMs());
  // Input comes before deadlines: a finger's lift that waits to be read prevents what was due.
  if (ready > 0) return readFrom(*static_cast<Source*>(event.data.ptr));
  now_ = monotonicTime();
  tickDue();
}

void TouchLoop::readFrom(Source& source) {
  if (source.read(now_)) return;
  source.isBroken_ = true;
  ::epoll_ctl(epoll_.get(), EPOLL_CTL_DEL, source.descriptor(), nullptr);
}

void TouchLoop::runCall() {
  now_ = monotonicTime();
  (*call_.exchange(nullptr))();
  done_.release();
}

int TouchLoop::timeoutMs() const {
  auto nearest = microseconds::max();
  for (const auto* source : sources_)
    if (const auto due = source->nextDeadline()) nearest = std::min(nearest, *due);
  if (nearest == microseconds::max()) return -1;
  const auto left = ceil<milliseconds>(nearest - now_).count();
  return static_cast<int>(std::clamp<milliseconds::rep>(left, 0, std::numeric_limits<int>::max()));
}

void TouchLoop::tickDue() {
  for (auto* source : sources_)
    if (const auto due = source->nextDeadline(); due && *due <= now_) source->tick(now_);
}

}  // namespace touchpanel
