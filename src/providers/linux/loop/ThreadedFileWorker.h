#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/FileWorker.h"
#include "providers/linux/loop/EventLoop.h"
#include "providers/linux/loop/FileDescriptor.h"

namespace touchpanel {

/// A thread that runs jobs in the order in which they came. Destroying it waits for the job under way; the others
/// are dropped.
class ThreadedFileWorker final : public FileWorker {
 public:
  /// Throws std::system_error where the system refuses. `loop` is not owned.
  explicit ThreadedFileWorker(EventLoop& loop);

  void post(Job job, Done done) override;
  void finish() override;

 private:
  struct Posted {
    Job job;
    Done done;
    Status status = kSuccess;
  };

  void work(const std::stop_token& stop);
  void report();

  FileDescriptor reported_;
  std::unique_ptr<EventLoop::Watch> watch_;
  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<Posted> waiting_;  ///< the first one is the one that runs
  std::deque<Posted> finished_;
  std::jthread thread_;
};

}  // namespace touchpanel
