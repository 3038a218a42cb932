#pragma once

#include "platform/TouchOutputs.h"

namespace touchpanel {

/// Property "outputName" of KWin's input devices on the session bus: the connector of the monitor that a touch device
/// lies on. KWin keeps it for the device.
class KWinTouchOutputs final : public TouchOutputs {
 public:
  void assign(const std::string& name, const Monitor& monitor) override;
};

}  // namespace touchpanel
