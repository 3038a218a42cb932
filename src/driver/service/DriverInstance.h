#pragma once

#include <string>

#include "driver/PublishedInstances.h"
#include "driver/TouchDriver.h"
#include "driver/service/ServicePorts.h"
#include "driver/service/StateStore.h"
#include "driver/service/TouchscreenDevices.h"

namespace touchpanel::driver {

/// One attached touchscreen: its driver, its devices, and its saved state.
///
/// On arrival it restores the saved state; then it reads the calibration that the touchscreen itself holds,
/// which takes precedence unless a client has written another one meanwhile. Each change is saved before the
/// write that made it returns.
class DriverInstance final : public PublishedInstance, private FrameListener {
 public:
  DriverInstance(const TouchscreenIdentity& identity, const ServicePorts& ports, StateStore& store);

  void addNode(const std::string& path) { devices_.addNode(path); }
  void removeNode(const std::string& path);

  std::uint32_t locationId() const override { return identity_.locationId; }
  Dictionary properties() const override { return driver_.properties(); }
  Status setProperty(std::string_view name, const Value& value) override;
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area) override {
    driver_.setDoubleClick(time, area);
  }

  /// Whether a calibration run has capture on.
  bool capturing() const { return driver_.capturing(); }
  /// When the touchscreen last reported something, in the clock of the timers; 0 before it did.
  std::chrono::microseconds lastFrame() const { return lastFrame_; }

 private:
  void frame(const RawFrame& frame) override;
  void startReading();
  void finishReading(Status status, const HeldCalibration& held);
  void settingsChanged();
  void armDeadline();

  TouchscreenIdentity identity_;
  ServicePorts ports_;
  StateStore& store_;
  TouchDriver driver_;
  Dictionary saved_;
  bool wroteCalibration_ = false;
  std::chrono::microseconds lastFrame_{0};
  TouchscreenDevices devices_;
  std::unique_ptr<Timer> deadline_;
  std::unique_ptr<PendingRead> reading_;
};

}  // namespace touchpanel::driver
