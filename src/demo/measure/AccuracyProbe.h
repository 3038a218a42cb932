#pragma once

#include <optional>

#include "demo/measure/FingerClock.h"
#include "demo/measure/TouchError.h"
#include "providers/simulated/SimulatedTouchscreen.h"

namespace touchpanel::demo {

/// How well a touchscreen hits now: one tap on each of the test points, through its sensor and its driver
/// instance with everything it is set to, each compared with where the pointer lands first. Nothing when a
/// tap moves the pointer nowhere.
///
/// Takes over the touchscreen's output, so no finger may be down; whoever wants the output next sets it anew.
std::optional<ErrorSummary> probeAccuracy(simulated::SimulatedTouchscreen& touchscreen, ScreenSize screen,
                                          FingerClock& clock);

}  // namespace touchpanel::demo
