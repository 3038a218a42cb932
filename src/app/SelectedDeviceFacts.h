#pragma once

#include "app/ControllerState.h"
#include "app/DeviceFacts.h"
#include "app/EarlierCalibrations.h"
#include "platform/Registry.h"

namespace touchpanel {

/// Gathers the facts about the selected touchscreen and has them shown. Nothing is sent to any device: they are
/// in the entry, in the history's file and among the driver instance's properties.
class SelectedDeviceFacts {
 public:
  SelectedDeviceFacts(const ControllerState& state, Registry& registry, const EarlierCalibrations& earlier,
                      FactsView& view)
      : state_(state), registry_(registry), earlier_(earlier), view_(view) {}

  /// Blocks for the time of a disk and a registry.
  void update() { view_.show(facts()); }

 private:
  DeviceFacts facts() const;

  const ControllerState& state_;
  Registry& registry_;
  const EarlierCalibrations& earlier_;
  FactsView& view_;
};

}  // namespace touchpanel
