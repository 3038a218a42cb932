#pragma once

#include "app/Outlets.h"
#include "contract/TouchSettings.h"

namespace touchpanel {

/// The controls of the settings sheet as one value, and which of them can be used.
class SettingsControls {
 public:
  explicit SettingsControls(const Outlets& outlets) : outlets_(outlets) {}

  /// Shows `settings`. Any number of targets but 4 is shown as the second choice. The calibration type can be
  /// seen, never chosen.
  void show(const TouchSettings& settings);

  /// `settings` with what the controls show in their place; the number of targets is then 4 or 25.
  TouchSettings changed(TouchSettings settings) const;

  /// Enables the controls that depend on the touch mode and on what kind of device `productId` is:
  ///
  ///     touch mode        right click   its time and area     | product   smoothing, filter   its time, area
  ///     0, 1              off           off                   | optical   on                  if the filter
  ///     2                 on            if right click is on  |                               is on
  ///     any other         as they are   as they are           | other     off                 off
  void enableDependents(std::int32_t touchMode, std::int32_t productId);

 private:
  void enableRightClick(std::int32_t touchMode);
  void enableFilters(bool exist);

  const Outlets& outlets_;
};

}  // namespace touchpanel
