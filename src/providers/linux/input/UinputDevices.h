#pragma once

#include "platform/PointerDevices.h"

namespace touchpanel {

/// Pointer devices through uinput. A touchscreen in modes 0 to 2 is one absolute pointer with a left and a
/// right button, which desktops take for a mouse (no INPUT_PROP_DIRECT). In mode 3 there is a second,
/// multi-touch device beside it (INPUT_PROP_DIRECT, ten slots), which desktops take for a touchscreen; it is
/// there in that mode only, so that a desktop does not count a touchscreen that never touches. Both report
/// 0..32767 and go with the process, buttons and contacts released by the kernel. Each frame is one write.
class UinputDevices final : public PointerDevices {
 public:
  Status create(const TouchscreenIdentity& identity, std::unique_ptr<PointerDevice>& device) override;
};

}  // namespace touchpanel
