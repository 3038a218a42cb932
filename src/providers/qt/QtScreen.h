#pragma once

#include <QWidget>

#include "platform/Application.h"
#include "platform/View.h"
#include "providers/qt/CallbackGate.h"

namespace touchpanel {

/// The scale of the screen that `widget` is on.
SurfaceScale surfaceScaleOf(const QWidget& widget);

/// The primary screen. Frames are relative to it, so its own origin is always 0, 0.
class QtScreen final : public Screen {
 public:
  explicit QtScreen(CallbackGate& gate) : gate_(gate) {}
  Rect mainScreenFrame() override;
  SurfaceScale mainScreenScale() override;
  std::unique_ptr<FullScreenWindow> createBorderlessWindow(const Rect& contentRect,
                                                           const WindowBehaviour& behaviour) override;

 private:
  CallbackGate& gate_;
};

/// The desktops served here have no system-wide presentation mode: a full-screen window that lies above
/// panels and docks needs none, and leaves nothing behind that would have to be put back.
class QtPresentation final : public Presentation {
 public:
  void setSystemUIMode(int /*mode*/, int /*options*/) override {}
};

}  // namespace touchpanel
