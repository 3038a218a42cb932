#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "contract/ProductId.h"
#include "contract/TouchSettings.h"
#include "history/CalibrationRecord.h"
#include "platform/Status.h"

namespace touchpanel {

/// When the calibration that a touchscreen holds was accepted, and how well it fits.
struct CalibrationFacts {
  std::chrono::sys_seconds accepted{};
  std::optional<CalibrationFit> fit = {};
  bool operator==(const CalibrationFacts&) const = default;
};

/// What matters about the selected touchscreen. Texts that come from the device are as they came: they may
/// hold anything, markup and control characters too.
struct DeviceFacts {
  bool isSelected = false;  ///< false: no touchscreen is, and the rest means nothing
  DeviceKind kind = DeviceKind::Unknown;
  std::string barCode = {};  ///< empty for a touchscreen without one
  std::string firmware = {};
  std::int32_t monitor = 0;  ///< 0 is the main screen
  bool isCalibrated = false;
  /// None when the touchscreen is not calibrated, or was calibrated elsewhere or too long ago.
  std::optional<CalibrationFacts> calibration = {};
  std::size_t earlierCalibrations = 0;  ///< how many are kept
  bool isHistoryDamaged = false;        ///< some of them could not be read
  bool canUndoReset = false;            ///< what the last reset discarded can be put back

  /// The settings by which the driver instance works now; those that it does not know are at their defaults.
  /// None when it does not say.
  std::optional<TouchSettings> inForce = {};
  /// Why there are no settings: kErrorNotResponding when the driver service does not answer, kErrorNoDevice when
  /// it does but serves this touchscreen no more, and what else Registry::availability() gives.
  Status driver = kSuccess;
  bool operator==(const DeviceFacts&) const = default;
};

/// Where the facts are shown.
class FactsView {
 public:
  virtual ~FactsView() = default;
  /// Replaces what is shown. Called after each selection, command, arrival and departure.
  virtual void show(const DeviceFacts& facts) = 0;
};

}  // namespace touchpanel
