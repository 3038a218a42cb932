#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <vector>

#include "platform/RunLoop.h"
#include "providers/qt/CallbackGate.h"

class QSocketNotifier;
class QTimer;

namespace touchpanel {

/// The main thread's event loop. While a modal window is up neither sources nor timers are served; what came
/// due meanwhile is served when the window has gone, each timer once.
class QtRunLoop final : public RunLoop {
 public:
  explicit QtRunLoop(CallbackGate& gate);
  ~QtRunLoop() override;

  void addSource(RunLoopSource& source) override;
  void removeSource(RunLoopSource& source) override;
  TimerId startRepeatingTimer(std::chrono::milliseconds interval, std::function<void()> callback) override;
  void invalidateTimer(TimerId timer) override;

 private:
  struct Timer;
  struct Source;

  void fire(TimerId id);
  void perform(RunLoopSource& source);
  void enable(const RunLoopSource& source, bool enabled);

  CallbackGate& gate_;
  QObject context_;  ///< ends queued calls when the run loop goes
  std::map<TimerId, std::unique_ptr<Timer>> timers_;
  std::vector<std::unique_ptr<Source>> sources_;
  TimerId lastTimer_ = 0;
};

}  // namespace touchpanel
