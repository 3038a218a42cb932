#pragma once

#include "platform/View.h"

namespace touchpanel {

/// How the main window answers when the keyboard is offered to it.
class MainWindow final : public WindowBehaviour {
 public:
  bool canBecomeKeyWindow() const override { return true; }
};

}  // namespace touchpanel
