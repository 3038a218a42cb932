#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include "calibration/TouchErrors.h"

namespace touchpanel {

/// What a fit made of the touch of one target.
struct FittedTouch {
  LandedTouch
      units;  ///< the target, and where its touch lands now; logical units 0..32767 of the picture, y from the top
  bool fits = true;  ///< false: the touch does not fit those of the other targets
  bool operator==(const FittedTouch&) const = default;
};

/// How well a calibration fits the touches it was made of. A value: whoever wants to keep it copies it.
struct FitReport {
  /// False: the solver found nothing, nothing was sent to the driver, and the rest means nothing.
  bool isSolved = false;
  /// Two places of the glass are mapped to one point of the screen, or close to it.
  bool folds = false;
  /// Of four touches it can only be said that they do not fit each other, not which one is wrong.
  bool disagrees = false;
  std::array<FittedTouch, 25> all{};
  std::size_t count = 0;
  TouchErrors pixels;
  std::optional<TouchErrors> millimetres;  ///< when the size of the screen is known
  bool operator==(const FitReport&) const = default;

  /// In the order of the targets.
  std::span<const FittedTouch> touches() const { return {all.data(), count}; }
  /// How many touches do not fit.
  std::size_t wrongTouches() const {
    std::size_t wrong = 0;
    for (const auto& touch : touches()) wrong += touch.fits ? 0 : 1;
    return wrong;
  }
};

}  // namespace touchpanel
