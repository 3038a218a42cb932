#include "demo/MouseFinger.h"

#include <QCoreApplication>
#include <QPointer>

#include "demo/DesktopPlace.h"

namespace touchpanel::demo {
namespace {

constexpr std::chrono::milliseconds kScanInterval{10};

bool isMouseEvent(QEvent::Type type) {
  return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
         type == QEvent::MouseMove || type == QEvent::MouseButtonRelease;
}

}  // namespace

MouseFinger::MouseFinger(Choice choice, Touched touched, FingerClock& clock)
    : choice_(std::move(choice)), touched_(std::move(touched)), clock_(clock) {
  scan_.setInterval(kScanInterval);
  scan_.setTimerType(Qt::PreciseTimer);
  connect(&scan_, &QTimer::timeout, this, [this] { down_->hold(clock_.now()); });
  QCoreApplication::instance()->installEventFilter(this);
}

bool MouseFinger::eventFilter(QObject* receiver, QEvent* event) {
  // Windows get real events first and spread them to their widgets; what the driver makes of them is not
  // real.
  if (!receiver->isWindowType() || !event->spontaneous() || !isMouseEvent(event->type())) return false;
  return take(*static_cast<const QWindow*>(receiver), *static_cast<const QMouseEvent*>(event));
}

bool MouseFinger::take(const QWindow& window, const QMouseEvent& event) {
  const bool isLeft = event.button() == Qt::LeftButton;
  if (down_ != nullptr) {
    if (event.type() == QEvent::MouseMove) move(event);
    if (event.type() == QEvent::MouseButtonRelease && isLeft) lift();
    return true;
  }
  // A button that went down on a mouse comes up on a mouse.
  if (event.type() == QEvent::MouseButtonRelease) return false;
  auto* touchscreen = choice_(window);
  if (touchscreen == nullptr) return false;
  if (event.type() != QEvent::MouseMove && isLeft) land(*touchscreen, event);
  return true;
}

void MouseFinger::land(Touchscreen& touchscreen, const QMouseEvent& event) {
  down_ = &touchscreen;
  // A property write may make the driver let go of its buttons at any later time.
  touchscreen.setOutput([pointer = QPointer(&pointer_)](const OutputFrame& frame) {
    if (pointer) pointer->post(frame);
  });
  move(event);
  scan_.start();
}

void MouseFinger::move(const QMouseEvent& event) {
  const auto point = glassAt(event.globalPosition(), down_->driver().monitor().pointer);
  const auto raw = down_->touch(point, clock_.now());
  touched_(*down_, point, raw);
}

void MouseFinger::lift() {
  scan_.stop();
  down_->release(clock_.now());
  down_ = nullptr;
}

}  // namespace touchpanel::demo
