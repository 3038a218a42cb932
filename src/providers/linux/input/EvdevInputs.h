#pragma once

#include "platform/Diagnostics.h"
#include "platform/Notices.h"
#include "platform/TouchInputs.h"
#include "providers/linux/loop/TouchLoop.h"

namespace touchpanel {

/// Input nodes: grabbed, read by the touch thread in one call for each batch of events, on the monotonic clock, and
/// brought up to date when the kernel had to drop events.
class EvdevInputs final : public TouchInputs {
 public:
  /// Nothing is owned.
  EvdevInputs(TouchLoop& touches, Notices& notices, Diagnostics& diagnostics)
      : touches_(touches), notices_(notices), diagnostics_(diagnostics) {}
  Status open(const std::string& node, std::unique_ptr<TouchInput>& input) override;

 private:
  TouchLoop& touches_;
  Notices& notices_;
  Diagnostics& diagnostics_;
};

}  // namespace touchpanel
