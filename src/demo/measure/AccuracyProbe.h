#pragma once

#include <optional>

#include "demo/measure/FingerClock.h"
#include "demo/measure/TouchError.h"
#include "providers/simulated/SimulatedTouchscreen.h"

namespace touchpanel::demo {

/// The part of the screen that is touched, in fractions of it, and that stands for all of the screen.
struct TouchedBox {
  firmware::ScreenFraction corner{0, 0};  ///< upper left
  firmware::ScreenFraction size{1, 1};
};

/// How well a touchscreen hits now: one tap on each of the test points of `box`, through its sensor and its
/// driver instance with everything it is set to, each compared with where the pointer lands first. Nothing
/// when a tap moves the pointer nowhere.
///
/// Takes over the touchscreen's output, so no finger may be down; the output is unset afterwards.
std::optional<ErrorSummary> probeAccuracy(simulated::SimulatedTouchscreen& touchscreen, ScreenSize screen,
                                          FingerClock& clock, const TouchedBox& box = {});

}  // namespace touchpanel::demo
