#pragma once

#include <memory>
#include <string>

#include "driver/InstanceProperties.h"
#include "driver/service/PatientReading.h"

namespace touchpanel::driver {

/// Which calibration of a touchscreen is in force, and which is kept. What a client writes is a trial: whether it was
/// accepted, and not taken back, stands in the touchscreen, and counts when the client has left.
///
///     in force   another one is written   its client leaves        the touchscreen is read
///     kept       trial                                              it is kept and in force
///     trial      trial; kept if the same  ended; it is read         it is kept
///     ended      trial                                              it is kept and in force; failed or not within
///                                                                   a second: the kept one is in force
class CalibrationKeeping {
 public:
  /// The touchscreen's instance.
  class Owner {
   public:
    virtual ~Owner() = default;
    /// No touchscreen is read during a calibration run, as it reports no touches then.
    virtual bool capturing() const = 0;
    /// The calibration of the properties is to be put in force, and the kept one to be saved.
    virtual void calibrationChanged() = 0;
  };

  /// Nothing is owned.
  CalibrationKeeping(const TouchscreenIdentity& identity, const ServicePorts& ports,
                     InstanceProperties& properties, Owner& owner);

  /// `remembered` is what was kept, and in force.
  void keep(const CalibrationSettings& remembered);
  /// Begins with reading the touchscreen.
  void begin() { reading_.start(); }
  const CalibrationSettings& kept() const { return kept_; }
  /// `client` has written to the properties.
  void written(const std::string& client);
  void clientLeft(const std::string& client);
  void allClientsLeft();

 private:
  enum class InForce { Kept, Trial, Ended };

  void endTrial();
  void bringKeptInForce();
  void readingAttempted(Status status, const HeldCalibration& held);

  InstanceProperties& properties_;
  Owner& owner_;
  Timers& timers_;
  CalibrationSettings kept_;
  Dictionary lastSeen_;  ///< in force when it was looked at
  InForce inForce_ = InForce::Kept;
  std::string client_;  ///< of the trial
  std::unique_ptr<Timer> patience_;
  PatientReading reading_;
};

}  // namespace touchpanel::driver
