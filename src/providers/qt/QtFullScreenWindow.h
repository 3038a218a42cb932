#pragma once

#include <QPointer>
#include <QRect>

#include "platform/View.h"
#include "providers/qt/ViewSurface.h"

namespace touchpanel {

/// A borderless window, sized from the screen's geometry and not left to a window manager. The widget behind
/// it goes only when control is back in the event loop.
class QtFullScreenWindow final : public FullScreenWindow {
 public:
  QtFullScreenWindow(CallbackGate& gate, const QRect& geometry, const WindowBehaviour& behaviour);
  ~QtFullScreenWindow() override;

  void setNeedsDisplay() override;
  void close() override;
  void setContentView(View& view) override;
  void setShieldingLevel() override;
  void makeKeyAndOrderFront() override;
  void setInitialFirstResponder(View& view) override;

 private:
  void takeKeyboard();

  QPointer<ViewSurface> surface_;
  const WindowBehaviour& behaviour_;
  QPointer<QWidget> keyboardBefore_;  ///< the window that gets the keyboard back
};

}  // namespace touchpanel
