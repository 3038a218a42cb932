#include "providers/qt/QtRunLoop.h"

#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>

namespace touchpanel {
namespace {

/// An object that may be inside its own signal when it is given up.
template <typename T>
struct DeleteLater {
  void operator()(T* object) const {
    object->disconnect();
    object->deleteLater();
  }
};

}  // namespace

struct QtRunLoop::Timer {
  std::unique_ptr<QTimer, DeleteLater<QTimer>> timer{new QTimer};
  std::function<void()> callback;
  bool isWaiting = false;  ///< came due while the gate was shut
};

struct QtRunLoop::Source {
  RunLoopSource& source;
  std::vector<std::unique_ptr<QSocketNotifier, DeleteLater<QSocketNotifier>>> notifiers;

  void enable(bool enabled) const {
    for (const auto& notifier : notifiers) notifier->setEnabled(enabled);
  }
};

QtRunLoop::QtRunLoop(CallbackGate& gate) : gate_(gate) {}

QtRunLoop::~QtRunLoop() {
  for (const auto& source : sources_) source->enable(false);  // its descriptors may be closed next
}

void QtRunLoop::addSource(RunLoopSource& source) {
  auto added = std::make_unique<Source>(Source{source, {}});
  for (const int descriptor : source.descriptors()) {
    auto& notifier = added->notifiers.emplace_back(new QSocketNotifier(descriptor, QSocketNotifier::Read));
    QObject::connect(notifier.get(), &QSocketNotifier::activated, &context_,
                     [this, &source] { perform(source); });
  }
  sources_.push_back(std::move(added));
}

void QtRunLoop::removeSource(RunLoopSource& source) {
  const auto found = std::find_if(sources_.begin(), sources_.end(),
                                  [&](const auto& candidate) { return &candidate->source == &source; });
  if (found == sources_.end()) return;
  (*found)->enable(false);
  sources_.erase(found);
}

TimerId QtRunLoop::startRepeatingTimer(std::chrono::milliseconds interval, std::function<void()> callback) {
  const TimerId id = ++lastTimer_;
  auto started = std::make_unique<Timer>();
  started->callback = std::move(callback);
  QObject::connect(started->timer.get(), &QTimer::timeout, &context_, [this, id] { fire(id); });
  started->timer->start(interval);
  timers_[id] = std::move(started);
  return id;
}

void QtRunLoop::invalidateTimer(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  found->second->timer->stop();
  timers_.erase(found);
}

void QtRunLoop::fire(TimerId id) {
  const auto found = timers_.find(id);
  if (found == timers_.end() || found->second->isWaiting) return;
  const auto callback = found->second->callback;  // the callback may invalidate its own timer
  if (gate_.pass(callback)) return;
  found->second->isWaiting = true;
  gate_.whenOpen(context_, [this, id] {
    if (const auto waiting = timers_.find(id); waiting != timers_.end()) waiting->second->isWaiting = false;
    fire(id);
  });
}

void QtRunLoop::perform(RunLoopSource& source) {
  if (gate_.pass([&] { source.perform(); })) return;
  enable(source, false);  // a readable descriptor would spin the modal window's loop
  gate_.whenOpen(context_, [this, &source] { enable(source, true); });
}

void QtRunLoop::enable(const RunLoopSource& source, bool enabled) {
  for (const auto& candidate : sources_)
    if (&candidate->source == &source) candidate->enable(enabled);
}

}  // namespace touchpanel
