#pragma once

#include "contract/TouchSettings.h"
#include "driver/service/StateStore.h"
#include "platform/Diagnostics.h"

namespace touchpanel::driver {

/// The settings of the whole machine: what was last written to any touchscreen is given to each that arrives. Not
/// "enableTouch", which switches one touchscreen and is kept with it.
class SettingsInForce {
 public:
  /// Waits for the disk. Neither is owned.
  SettingsInForce(StateStore& store, Diagnostics& diagnostics);

  /// What a touchscreen that arrives is to restore: `remembered`, which is its own state, with these settings.
  Dictionary over(Dictionary remembered) const;
  /// `remembered` has been restored, and gave `settings`: in force where none were, as an earlier release kept all of
  /// them with each touchscreen.
  void takeOver(const Dictionary& remembered, const TouchSettings& settings);
  /// `message` has been written to a touchscreen and gave it `settings`.
  void written(const Dictionary& message, const TouchSettings& settings);

 private:
  void set(const TouchSettings& settings);

  StateStore& store_;
  Dictionary settings_;  ///< empty while there are none
};

/// What is kept with each touchscreen.
Dictionary ownSettings(const TouchSettings& settings);

}  // namespace touchpanel::driver
