#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <semaphore>
#include <thread>
#include <vector>

#include "platform/TouchThread.h"
#include "providers/linux/loop/FileDescriptor.h"

namespace touchpanel {

/// The touch thread, on epoll: no timer descriptor, no allocation, no file, no bus.
class TouchLoop final : public TouchThread {
 public:
  /// What the thread waits for, and calls.
  class Source {
   public:
    virtual ~Source() = default;
    virtual int descriptor() const = 0;
    /// The descriptor is readable or broken. False: it is not to be waited for any more.
    virtual bool read() = 0;
    virtual std::optional<std::chrono::microseconds> nextDeadline() const = 0;
    virtual void tick(std::chrono::microseconds now) = 0;
  };

  /// Starts the thread. Throws std::system_error when the system refuses.
  TouchLoop();
  ~TouchLoop() override;
  TouchLoop(const TouchLoop&) = delete;
  TouchLoop& operator=(const TouchLoop&) = delete;

  void run(const std::function<void()>& call) override;
  /// Waits for `source`, which is not owned, until remove(). Called on the main thread.
  void add(Source& source);
  void remove(Source& source);

 private:
  void serve();
  void runCall();
  int timeoutMs() const;
  void tickDue();

  FileDescriptor epoll_;
  FileDescriptor wake_;
  std::atomic<const std::function<void()>*> call_ = nullptr;
  std::binary_semaphore done_{0};
  // Written in calls only.
  bool stopping_ = false;
  std::vector<Source*> sources_;
  std::thread thread_;
};

}  // namespace touchpanel
