#pragma once

#include <string>

#include "driver/InstanceProperties.h"
#include "driver/PublishedInstances.h"
#include "driver/service/ServicePorts.h"
#include "driver/service/StateStore.h"
#include "driver/service/TouchChain.h"
#include "driver/service/TouchscreenDevices.h"

namespace touchpanel::driver {

/// One attached touchscreen as the main thread sees it: its properties, its devices, its saved state, and the chain
/// that handles its touches on the touch thread.
///
/// On arrival it restores the saved state; then it reads the calibration that the touchscreen itself holds,
/// which takes precedence unless a client has written another one meanwhile. Each change is saved before the
/// write that made it returns.
class DriverInstance final : public PublishedInstance {
 public:
  DriverInstance(const TouchscreenIdentity& identity, const ServicePorts& ports, StateStore& store);

  void addNode(const std::string& path) { devices_.addNode(path); }
  void removeNode(const std::string& path) { devices_.removeNode(path); }

  std::uint32_t locationId() const override { return identity_.locationId; }
  Dictionary properties() const override { return properties_.properties(capturing_, chain_.captured()); }
  Status setProperty(std::string_view name, const Value& value) override;
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area) override;
  /// Whether a calibration run has capture on.
  bool capturing() const { return capturing_; }
  /// When the touchscreen last reported something, in the clock of the timers; 0 before it did.
  std::chrono::microseconds lastFrame() const { return chain_.lastFrame(); }

 private:
  Status write(std::string_view name, const Value& value);
  void startReading();
  void finishReading(Status status, const HeldCalibration& held);
  void bringInForce(const CaptureRequest& capture = {});

  TouchscreenIdentity identity_;
  ServicePorts ports_;
  StateStore& store_;
  InstanceProperties properties_;
  bool capturing_ = false;
  std::int32_t mode_ = 0;  ///< in force; another one may wait for its devices
  Dictionary saved_;
  bool wroteCalibration_ = false;
  std::unique_ptr<Notice> failed_;
  TouchChain chain_;
  TouchscreenDevices devices_;
  std::unique_ptr<PendingRead> reading_;
};

}  // namespace touchpanel::driver
