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

/// The touch thread: no allocation, no file, no bus. It sleeps in the reading itself as long as there is one source
/// and nothing due, which saves a system call before each frame, and in epoll otherwise. A signal gets it out of
/// either.
class TouchLoop final : public TouchThread {
 public:
  /// What the thread waits for, and calls.
  class Source {
   public:
    virtual ~Source() = default;
    /// Blocking.
    virtual int descriptor() const = 0;
    /// Waits until the descriptor is readable or broken, or a signal comes, and reads it once. Sets `now` to the time
    /// of what it read last. False: it is not to be read any more.
    virtual bool read(std::chrono::microseconds& now) = 0;
    virtual std::optional<std::chrono::microseconds> nextDeadline() const = 0;
    virtual void tick(std::chrono::microseconds now) = 0;

   private:
    friend class TouchLoop;
    bool isBroken_ = false;
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
  void waitForAny();
  void readFrom(Source& source);
  void runCall();
  int timeoutMs() const;
  void tickDue();

  FileDescriptor epoll_;
  std::atomic<const std::function<void()>*> call_ = nullptr;
  std::binary_semaphore done_{0};
  bool stopping_ = false;
  std::vector<Source*> sources_;  ///< written in calls only
  /// Of the last event, which costs no call to the clock: what is due after it may come late by an event's way here.
  std::chrono::microseconds now_{0};
  std::thread thread_;
};

}  // namespace touchpanel
