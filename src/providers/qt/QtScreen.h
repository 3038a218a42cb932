#pragma once

#include <QWidget>
#include <string>
#include <string_view>

#include "platform/Application.h"
#include "platform/View.h"
#include "providers/qt/CallbackGate.h"

namespace touchpanel {

/// The scale of the screen that `widget` is on.
SurfaceScale surfaceScaleOf(const QWidget& widget);

/// The screen at `connector`; the primary one where there is none. Null only without any screen.
QScreen* screenAt(std::string_view connector);

/// The main screen. Frames are relative to it, so its own origin is always 0, 0.
class QtScreen final : public Screen {
 public:
  explicit QtScreen(CallbackGate& gate) : gate_(gate) {}
  void setMain(std::string_view connector) override { main_ = connector; }
  Rect mainScreenFrame() override;
  SurfaceScale mainScreenScale() override;
  bool placesWindows() const override;
  std::unique_ptr<FullScreenWindow> createBorderlessWindow(const Rect& contentRect,
                                                           const WindowBehaviour& behaviour) override;

 private:
  CallbackGate& gate_;
  std::string main_;  ///< its connector
};

/// The desktops served here have no system-wide presentation mode: a full-screen window that lies above
/// panels and docks needs none, and leaves nothing behind that would have to be put back.
class QtPresentation final : public Presentation {
 public:
  void setSystemUIMode(int /*mode*/, int /*options*/) override {}
};

}  // namespace touchpanel
