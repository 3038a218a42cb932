#include "providers/qt/QtFullScreenWindow.h"

#include <QApplication>

namespace touchpanel {
namespace {

/// Only X11 lets a window go past its manager; elsewhere the window asks to be full screen.
bool positionsOwnWindows() { return !QGuiApplication::platformName().startsWith("wayland"); }

}  // namespace

QtFullScreenWindow::QtFullScreenWindow(CallbackGate& gate, const QRect& geometry,
                                       const WindowBehaviour& behaviour)
    : surface_(new ViewSurface(gate)), behaviour_(behaviour) {
  surface_->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  surface_->setGeometry(geometry);
}

QtFullScreenWindow::~QtFullScreenWindow() { close(); }

void QtFullScreenWindow::setNeedsDisplay() {
  if (surface_) surface_->requestDisplay();
}

void QtFullScreenWindow::close() {
  if (!surface_) return;
  surface_->setView(nullptr);
  if (QWidget::keyboardGrabber() == surface_) surface_->releaseKeyboard();
  surface_->hide();
  surface_->deleteLater();
  surface_ = nullptr;
  if (keyboardBefore_ && keyboardBefore_->isVisible()) keyboardBefore_->activateWindow();
}

void QtFullScreenWindow::setContentView(View& view) {
  if (surface_) surface_->setView(&view);
}

void QtFullScreenWindow::setShieldingLevel() {
  if (!surface_) return;
  surface_->setWindowFlag(Qt::WindowStaysOnTopHint);
  surface_->setWindowFlag(Qt::X11BypassWindowManagerHint);
}

void QtFullScreenWindow::makeKeyAndOrderFront() {
  if (!surface_) return;
  if (positionsOwnWindows())
    surface_->show();
  else
    surface_->showFullScreen();
  surface_->raise();
  if (behaviour_.canBecomeKeyWindow()) takeKeyboard();
}

void QtFullScreenWindow::setInitialFirstResponder(View& view) {
  if (surface_ && surface_->view() == &view && view.acceptsFirstResponder()) surface_->setFocus();
}

/// A window that its manager does not know is never given the keyboard by it, so it is taken.
void QtFullScreenWindow::takeKeyboard() {
  keyboardBefore_ = QApplication::activeWindow();
  surface_->activateWindow();
  surface_->grabKeyboard();
}

}  // namespace touchpanel
