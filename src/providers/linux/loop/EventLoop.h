#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>

#include "platform/Notices.h"
#include "platform/Timers.h"

struct sd_event;
struct sd_event_source;

namespace touchpanel {

/// The one loop of a program without a toolkit, made of sd-event. Input is handled before timers, so a finger's lift that is
/// waiting to be read comes before the time-out that it prevents. Throws std::system_error where the system
/// refuses.
class EventLoop final : public Timers, public Notices {
 public:
  /// Something that is waited for. Destroying it ends that, but not from inside its own callback.
  class Watch;
  /// What a library that does its own reading wants to wait for.
  struct PollRequest {
    std::uint32_t events = 0;          ///< as for epoll
    std::uint64_t deadlineUs = ~0ULL;  ///< of the monotonic clock; all ones for none
  };

  EventLoop();
  ~EventLoop() override;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;

  std::chrono::microseconds now() const override;
  std::unique_ptr<Timer> create(std::function<void()> callback) override;
  std::unique_ptr<Notice> createNotice(std::function<void()> callback) override;

  /// Calls `ready` while `descriptor`, which is not owned, is readable or broken.
  std::unique_ptr<Watch> watch(int descriptor, std::function<void()> ready);
  /// The same for what `prepare` asks for before each wait.
  std::unique_ptr<Watch> watch(int descriptor, std::function<PollRequest()> prepare,
                               std::function<void()> ready);

  /// The signals, which the process must have blocked before it started threads, end run() with 0.
  void stopOn(std::initializer_list<int> signals);
  /// Waits for at most `longest` for something to happen and handles it, for those who loop themselves.
  void runOnce(std::chrono::microseconds longest);
  /// Runs until stopped; returns the exit status, 1 when a callback threw.
  int run();
  /// Ends run() with 0 after the callback that calls it.
  void stop();

 private:
  sd_event* event_ = nullptr;
};

class EventLoop::Watch {
 public:
  virtual ~Watch() = default;
  /// Ends the waiting for good. Safe from inside its own callback.
  virtual void stop() = 0;
};

}  // namespace touchpanel
