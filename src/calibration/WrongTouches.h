#pragma once

#include <array>

#include "calibration/LeastSquares.h"

namespace touchpanel {

/// How long a step of one logical unit is on the screen, in what `smallest` is measured in, and how far from its
/// target a touch must lie by the other touches' judgement to be called wrong.
struct TouchTolerance {
  double perUnitX = 1;
  double perUnitY = 1;
  double smallest = 0;
};

/// True for each touch that does not fit the others.
///
/// A touch is tested by leaving it out: the fit of the others predicts where it lands, and the distance d from its
/// target is compared with the scatter of the others' residuals, both axes together. With the residual r and
/// leverage h of the touch, the residual products E of all, and nu = samples - terms - 1:
///
///     T^2 = nu r' (E - r r' / (1 - h))^-1 r / (1 - h),   P(T^2 > t) = (1 + t / nu)^(-(nu - 1) / 2)
///
/// which is Hotelling's distribution for two axes, whatever their scatter and however it is correlated. The level of
/// 0.5 % is shared among all touches. Wrong touches hide each other, so the worst one is taken out and the rest is
/// tested again; when any of these tests finds a wrong touch, all that were taken out up to it are candidates
/// (Rosner's procedure). Each of them is tested once more against the touches that remain, and must be wrong by more
/// than `tolerance`.
///
/// Nothing is found in a plane through four samples: what remains of four has no scatter to compare with.
std::array<bool, kMostSamples> wrongTouches(const TouchSamples& samples, std::size_t terms,
                                            const TouchTolerance& tolerance);

/// Distance from its target to where the fit of all other samples maps the touch of `index`; 0 when the others
/// do not fix a fit.
double distanceByTheOthers(const TouchSamples& samples, std::size_t terms, std::size_t index,
                           const TouchTolerance& tolerance);

}  // namespace touchpanel
