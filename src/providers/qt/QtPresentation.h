#pragma once

#include "platform/Application.h"

namespace touchpanel {

/// The desktops served here have no system-wide presentation mode: a full-screen window that lies above
/// panels and docks needs none, and leaves nothing behind that would have to be put back.
class QtPresentation final : public Presentation {
 public:
  void setSystemUIMode(int /*mode*/, int /*options*/) override {}
};

}  // namespace touchpanel
