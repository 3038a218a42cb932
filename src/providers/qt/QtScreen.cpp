#include "providers/qt/QtScreen.h"

#include <QGuiApplication>
#include <QScreen>
#include <cmath>

#include "providers/qt/QtFullScreenWindow.h"

namespace touchpanel {
namespace {

QRect mainScreenGeometry() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? QRect() : screen->geometry();
}

}  // namespace

Rect QtScreen::mainScreenFrame() {
  const QRect geometry = mainScreenGeometry();
  return {0, 0, static_cast<float>(geometry.width()), static_cast<float>(geometry.height())};
}

std::unique_ptr<FullScreenWindow> QtScreen::createBorderlessWindow(const Rect& contentRect,
                                                                   const WindowBehaviour& behaviour) {
  const QRect screen = mainScreenGeometry();
  const auto rounded = [](float length) { return static_cast<int>(std::lround(length)); };
  const QRect geometry(screen.x() + rounded(contentRect.x),
                       screen.y() + screen.height() - rounded(contentRect.y + contentRect.height),
                       rounded(contentRect.width), rounded(contentRect.height));
  return std::make_unique<QtFullScreenWindow>(gate_, geometry, behaviour);
}

}  // namespace touchpanel
