#include "providers/qt/QtScreen.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <cmath>

#include "providers/qt/ViewSurface.h"

namespace touchpanel {
namespace {

QRect geometryOf(const QScreen* screen) { return screen == nullptr ? QRect() : screen->geometry(); }

SurfaceScale scaleOf(const QScreen* screen) {
  if (screen == nullptr) return {};
  const QSizeF points = screen->geometry().size();
  const QSizeF millimetres = screen->physicalSize();
  return {screen->devicePixelRatio(),
          {{millimetres.width() / points.width(), millimetres.height() / points.height()}}};
}

/// Only X11 lets a window go past its manager; elsewhere the window asks to be full screen.
bool positionsOwnWindows() { return !QGuiApplication::platformName().startsWith("wayland"); }

/// A borderless window, sized from the screen's geometry and not left to a window manager. The widget behind
/// it goes only when control is back in the event loop.
class QtFullScreenWindow final : public FullScreenWindow {
 public:
  QtFullScreenWindow(CallbackGate& gate, QScreen* screen, const QRect& geometry,
                     const WindowBehaviour& behaviour)
      : surface_(new ViewSurface(gate)), behaviour_(behaviour) {
    surface_->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    surface_->setAttribute(Qt::WA_ShowWithoutActivating, !behaviour.canBecomeKeyWindow());
    if (screen != nullptr) surface_->setScreen(screen);  // where windows do not place themselves
    surface_->setGeometry(geometry);
  }
  ~QtFullScreenWindow() override { destroy(); }

  void setNeedsDisplay() override {
    if (surface_) surface_->requestDisplay();
  }
  void close() override { destroy(); }
  void setContentView(View& view) override {
    if (surface_) surface_->setView(&view);
  }
  void setShieldingLevel() override {
    if (!surface_) return;
    surface_->setWindowFlag(Qt::WindowStaysOnTopHint);
    surface_->setWindowFlag(Qt::X11BypassWindowManagerHint);
  }
  void makeKeyAndOrderFront() override {
    if (!surface_) return;
    if (positionsOwnWindows())
      surface_->show();
    else
      surface_->showFullScreen();
    surface_->raise();
    if (behaviour_.canBecomeKeyWindow()) takeKeyboard();
  }
  void setInitialFirstResponder(View& view) override {
    if (surface_ && surface_->view() == &view && view.acceptsFirstResponder()) surface_->setFocus();
  }

 private:
  void destroy() {
    if (!surface_) return;
    surface_->setView(nullptr);
    if (QWidget::keyboardGrabber() == surface_) surface_->releaseKeyboard();
    surface_->hide();
    surface_->deleteLater();
    surface_ = nullptr;
    if (keyboardBefore_ && keyboardBefore_->isVisible()) keyboardBefore_->activateWindow();
  }
  /// A window that its manager does not know is never given the keyboard by it, so it is taken.
  void takeKeyboard() {
    keyboardBefore_ = QApplication::activeWindow();
    surface_->activateWindow();
    surface_->grabKeyboard();
  }

  QPointer<ViewSurface> surface_;
  const WindowBehaviour& behaviour_;
  QPointer<QWidget> keyboardBefore_;  ///< the window that gets the keyboard back
};

}  // namespace

QScreen* screenAt(std::string_view connector) {
  const auto name = QString::fromUtf8(connector.data(), static_cast<qsizetype>(connector.size()));
  for (auto* screen : QGuiApplication::screens())
    if (screen->name() == name) return screen;
  return QGuiApplication::primaryScreen();
}

Rect QtScreen::mainScreenFrame() {
  const QRect geometry = geometryOf(screenAt(main_));
  return {0, 0, static_cast<float>(geometry.width()), static_cast<float>(geometry.height())};
}

SurfaceScale surfaceScaleOf(const QWidget& widget) { return scaleOf(widget.screen()); }

SurfaceScale QtScreen::mainScreenScale() { return scaleOf(screenAt(main_)); }

bool QtScreen::placesWindows() const { return positionsOwnWindows(); }

std::unique_ptr<FullScreenWindow> QtScreen::createBorderlessWindow(const Rect& contentRect,
                                                                   const WindowBehaviour& behaviour) {
  auto* main = screenAt(main_);
  const QRect screen = geometryOf(main);
  const auto rounded = [](float length) { return static_cast<int>(std::lround(length)); };
  const QRect geometry(screen.x() + rounded(contentRect.x),
                       screen.y() + screen.height() - rounded(contentRect.y + contentRect.height),
                       rounded(contentRect.width), rounded(contentRect.height));
  return std::make_unique<QtFullScreenWindow>(gate_, main, geometry, behaviour);
}

}  // namespace touchpanel
