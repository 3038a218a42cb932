#include "providers/linux/loop/ThreadedFileWorker.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <sys/eventfd.h>

namespace touchpanel {

ThreadedFileWorker::ThreadedFileWorker(EventLoop& loop)
    : reported_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (!reported_) throw std::system_error(errno, std::generic_category(), "eventfd");
  watch_ = loop.watch(reported_.get(), [this] { report(); });
  thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
}

void ThreadedFileWorker::post(Job job, Done done) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back({std::move(job), std::move(done)});
  }
  changed_.notify_all();
}

void ThreadedFileWorker::finish() {
  std::unique_lock lock(mutex_);
  while (!waiting_.empty() || !finished_.empty()) {
    changed_.wait(lock, [this] { return !finished_.empty(); });
    lock.unlock();
    report();
    lock.lock();
  }
}

void ThreadedFileWorker::work(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  while (changed_.wait(lock, stop, [this] { return !waiting_.empty(); }) && !stop.stop_requested()) {
    const auto job = std::move(waiting_.front().job);
    lock.unlock();
    const auto status = job();
    lock.lock();
    waiting_.front().status = status;
    finished_.push_back(std::move(waiting_.front()));
    waiting_.pop_front();
    ::eventfd_write(reported_.get(), 1);
    changed_.notify_all();
  }
}

void ThreadedFileWorker::report() {
  eventfd_t ignored = 0;
  ::eventfd_read(reported_.get(), &ignored);
  std::deque<Posted> reports;
  {
    const std::lock_guard lock(mutex_);
    reports.swap(finished_);
  }
  for (const auto& each : reports) each.done(each.status);
}

}  // namespace touchpanel
