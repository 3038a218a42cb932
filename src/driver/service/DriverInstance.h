#pragma once

#include <string>

#include "driver/InstanceProperties.h"
#include "driver/PublishedInstances.h"
#include "driver/service/CalibrationKeeping.h"
#include "driver/service/ServicePorts.h"
#include "driver/service/SettingsInForce.h"
#include "driver/service/StateStore.h"
#include "driver/service/TouchChain.h"
#include "driver/service/TouchscreenDevices.h"

namespace touchpanel::driver {

/// One attached touchscreen as the main thread sees it: its properties, its devices, its saved state, and the chain
/// that handles its touches on the touch thread.
///
/// On arrival the remembered calibration is in force, until the one that the touchscreen holds has been read, and so are
/// the settings of the machine. Each lasting change is handed to the store before the write that made it returns.
class DriverInstance final : public PublishedInstance, private CalibrationKeeping::Owner {
 public:
  /// Nothing is owned.
  DriverInstance(const TouchscreenIdentity& identity, const ServicePorts& ports, StateStore& store,
                 SettingsInForce& settings);

  void addNode(const std::string& path) { devices_.addNode(path); }
  void removeNode(const std::string& path) { devices_.removeNode(path); }

  std::uint32_t locationId() const override { return identity_.locationId; }
  Dictionary properties() const override { return properties_.properties(capturing_, chain_.captured()); }
  Status setProperty(std::string_view name, const Value& value) override;
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area) override;
  /// Whether a calibration run has capture on.
  bool capturing() const override { return capturing_; }
  /// Whose trial of a calibration begins, goes on or ends.
  CalibrationKeeping& calibrationKeeping() { return keeping_; }
  /// When the touchscreen last reported something, in the clock of the timers; 0 before it did.
  std::chrono::microseconds lastFrame() const { return chain_.lastFrame(); }

 private:
  void restore();
  Dictionary state() const;
  void calibrationChanged() override;
  void bringInForce(const CaptureRequest& capture = {});

  TouchscreenIdentity identity_;
  ServicePorts ports_;
  StateStore& store_;
  SettingsInForce& settings_;
  InstanceProperties properties_;
  bool capturing_ = false;
  std::int32_t mode_ = 0;  ///< in force; another one may wait for its devices
  std::unique_ptr<Notice> failed_;
  TouchChain chain_;
  TouchscreenDevices devices_;
  CalibrationKeeping keeping_;
};

}  // namespace touchpanel::driver
