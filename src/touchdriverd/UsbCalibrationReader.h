#pragma once

#include "driver/service/CalibrationReader.h"
#include "platform/Diagnostics.h"
#include "providers/linux/loop/EventLoop.h"

namespace touchpanel::driver {

/// Reads touchscreens over USB, each in a short-lived thread of its own, so that the others' touches go on.
/// An abandoned read ends after the transfer that it is in.
class UsbCalibrationReader final : public CalibrationReader {
 public:
  /// The exchange's own lines go to `details`, from those threads.
  UsbCalibrationReader(EventLoop& loop, Diagnostics& details) : loop_(loop), details_(details) {}
  std::unique_ptr<PendingRead> start(const TouchscreenIdentity& identity, const HeldCalibration& known,
                                     Done done) override;

 private:
  EventLoop& loop_;
  Diagnostics& details_;
};

}  // namespace touchpanel::driver
