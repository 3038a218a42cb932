#pragma once

#include "platform/View.h"
#include "providers/qt/CallbackGate.h"

namespace touchpanel {

/// The primary screen. Frames are relative to it, so its own origin is always 0, 0.
class QtScreen final : public Screen {
 public:
  explicit QtScreen(CallbackGate& gate) : gate_(gate) {}
  Rect mainScreenFrame() override;
  std::unique_ptr<FullScreenWindow> createBorderlessWindow(const Rect& contentRect,
                                                           const WindowBehaviour& behaviour) override;

 private:
  CallbackGate& gate_;
};

}  // namespace touchpanel
