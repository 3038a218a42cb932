#pragma once

#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

#include "platform/Application.h"
#include "platform/Diagnostics.h"

namespace touchpanel {

/// The one way from the toolkit into the logic. It keeps callbacks from running inside one another, stops
/// them once the program is ending, and keeps exceptions out of the toolkit.
///
/// A modal window runs the toolkit's loop inside a callback. Timers and sources that come due meanwhile are
/// turned away and may ask to be called when the gate is open again.
class CallbackGate {
 public:
  CallbackGate(const Application& application, Diagnostics& diagnostics)
      : application_(application), diagnostics_(diagnostics) {}

  /// Runs `callback` unless another one is running or the program is ending. An exception that escapes it
  /// becomes one diagnostic line. Returns whether it was run.
  bool pass(const std::function<void()>& callback);

  /// Keeps the gate shut for as long as it lives; for a modal window that no callback has opened.
  class Closed {
   public:
    explicit Closed(CallbackGate& gate) : gate_(gate) { ++gate_.depth_; }
    ~Closed() { gate_.leave(); }
    Closed(const Closed&) = delete;
    Closed& operator=(const Closed&) = delete;

   private:
    CallbackGate& gate_;
  };

  bool isOpen() const { return depth_ == 0 && !application_.isEnding(); }
  /// Calls `retry` once, from the event loop, after the gate has opened; not at all when `context` is gone.
  void whenOpen(QObject& context, std::function<void()> retry);

 private:
  void leave();

  const Application& application_;
  Diagnostics& diagnostics_;
  int depth_ = 0;
  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> waiting_;
};

}  // namespace touchpanel
