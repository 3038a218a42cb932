#pragma once

#include <string>
#include <utility>

#include "driver/service/CalibrationReader.h"
#include "platform/Diagnostics.h"
#include "platform/PropertyListFiles.h"
#include "providers/linux/loop/EventLoop.h"

namespace touchpanel::driver {

/// Reads touchscreens over USB, and those without storage from the control panel's file, each in a short-lived thread of
/// its own. An abandoned read ends after the transfer that it is in.
class UsbCalibrationReader final : public CalibrationReader {
 public:
  /// `files` and, for the exchange's own lines, `details` are used by those threads. `deviceConfig` is the path of the
  /// control panel's device configuration file.
  UsbCalibrationReader(EventLoop& loop, PropertyListFiles& files, std::string deviceConfig,
                       Diagnostics& details)
      : loop_(loop), files_(files), deviceConfig_(std::move(deviceConfig)), details_(details) {}
  std::unique_ptr<PendingRead> start(const TouchscreenIdentity& identity, Done done) override;

 private:
  EventLoop& loop_;
  PropertyListFiles& files_;
  std::string deviceConfig_;
  Diagnostics& details_;
};

}  // namespace touchpanel::driver
