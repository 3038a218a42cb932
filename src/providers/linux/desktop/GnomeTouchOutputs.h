#pragma once

#include "platform/TouchOutputs.h"

namespace touchpanel {

/// Key "output" of org.gnome.desktop.peripherals.touchscreen, by which mutter puts a touch device on a monitor: maker,
/// model and serial number. The key belongs to a USB vendor and product, so of two alike touchscreens the last one is
/// right. A change is stored in the background.
class GnomeTouchOutputs final : public TouchOutputs {
 public:
  void assign(const std::string& name, const Monitor& monitor) override;
};

}  // namespace touchpanel
