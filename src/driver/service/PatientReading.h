#pragma once

#include <functional>
#include <memory>

#include "driver/service/ServicePorts.h"
#include "platform/OutageReport.h"
#include "platform/TouchscreenIdentity.h"

namespace touchpanel::driver {

/// Reads the calibration of one touchscreen, and after a failure again: after 1, 2, 4 ... 60 s, for as long as it
/// takes. The journal hears of the first failure of each kind.
class PatientReading {
 public:
  using Attempted = std::function<void(Status, const HeldCalibration&)>;

  /// `attempted` is called after each attempt. kErrorBadArgument stands for a calibration that maps no glass onto a
  /// screen; neither that nor a touchscreen that holds none (kErrorNotFound) is read again. `mayRepeat` is asked before
  /// each repetition, which waits while it is false.
  PatientReading(const TouchscreenIdentity& identity, const ServicePorts& ports, Attempted attempted,
                 std::function<bool()> mayRepeat);
  /// Reads now. A read that is under way is abandoned.
  void start();

 private:
  void read();
  void finish(Status status, const HeldCalibration& held);
  void repeat();
  void report(Status status);

  TouchscreenIdentity identity_;
  CalibrationReader& reader_;
  Timers& timers_;
  OutageReport outage_;
  Attempted attempted_;
  std::function<bool()> mayRepeat_;
  std::chrono::seconds pause_{0};
  std::unique_ptr<Timer> again_;
  std::unique_ptr<PendingRead> reading_;
};

}  // namespace touchpanel::driver
