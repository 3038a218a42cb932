#pragma once

#include "platform/OutputDevices.h"

namespace touchpanel {

/// Devices through uinput. A pointer is absolute, with a left and a right button, which desktops take for a mouse (no
/// INPUT_PROP_DIRECT); a touch device has that property and ten slots, which desktops take for a touchscreen. Both
/// report 0..32767 and go with the process, buttons and contacts released by the kernel. Each frame is one write.
class UinputDevices final : public OutputDevices {
 public:
  Status create(const OutputDescription& description, std::unique_ptr<OutputDevice>& device) override;
};

}  // namespace touchpanel
