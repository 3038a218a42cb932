#include "demo/DriverPointer.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>

#include "demo/DesktopPlace.h"

namespace touchpanel::demo {
namespace {

bool belongsTo(const QWindow* window, const QWindow* owner) {
  for (; window != nullptr; window = window->transientParent())
    if (window == owner) return true;
  return false;
}

/// Real events to a window behind a modal one are held back before they get here; these have to be as well.
bool isBlocked(const QWindow* window) {
  const auto* modal = QGuiApplication::modalWindow();
  if (modal == nullptr || belongsTo(window, modal)) return false;
  return modal->modality() == Qt::ApplicationModal || belongsTo(modal, window);
}

}  // namespace

void DriverPointer::post(const OutputFrame& frame) {
  QMetaObject::invokeMethod(
      this, [this, frame] { deliver(frame); }, Qt::QueuedConnection);
}

void DriverPointer::deliver(const OutputFrame& frame) {
  move(frame);
  press(Qt::LeftButton, frame.left || frame.count > 0);
  press(Qt::RightButton, frame.right);
  if (buttons_ == Qt::NoButton) target_ = nullptr;
}

void DriverPointer::move(const OutputFrame& frame) {
  const QPoint before = position_;
  if (frame.hasPosition)
    position_ = pixelAt(frame.x, frame.y);
  else if (frame.count > 0)
    position_ = pixelAt(frame.contacts[0].x, frame.contacts[0].y);
  if (buttons_ == Qt::NoButton) target_ = QGuiApplication::topLevelAt(position_);
  if (position_ != before) send(QEvent::MouseMove, Qt::NoButton);
}

void DriverPointer::press(Qt::MouseButton button, bool down) {
  if (buttons_.testFlag(button) == down) return;
  buttons_.setFlag(button, down);
  send(down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, button);
}

void DriverPointer::send(QEvent::Type type, Qt::MouseButton button) {
  if (target_.isNull() || isBlocked(target_)) return;
  QMouseEvent event(type, target_->mapFromGlobal(QPointF(position_)), QPointF(position_), button, buttons_,
                    QGuiApplication::keyboardModifiers());
  QCoreApplication::sendEvent(target_, &event);
}

}  // namespace touchpanel::demo
