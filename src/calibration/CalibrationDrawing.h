#pragma once

#include "calibration/CalibrationTexts.h"
#include "platform/Canvas.h"

namespace touchpanel {

/// The parts of a calibration screen beside its buttons. `box` is the size of the area in which the
/// calibration is laid out, its lower-left corner the origin.

inline constexpr Color kBackgroundBlue{0.082F, 0.691F, 0.914F, 1};

inline constexpr float kBullsEyeRadius = 25;

/// Five discs around `target`.
void drawBullsEye(Canvas& canvas, const Point& target);

void drawCountDown(Canvas& canvas, const CalibrationTexts& texts, const Size& box);

/// The note while targets are shown.
void drawNote(Canvas& canvas, const CalibrationTexts& texts, const Size& box);

/// The note of the finished grid, lower so that the buttons have room.
void drawNoteBelowButtons(Canvas& canvas, const CalibrationTexts& texts, const Size& box);

/// What each of these texts covers.
Rect countDownExtent(Canvas& canvas, const CalibrationTexts& texts, const Size& box);
Rect noteExtent(Canvas& canvas, const CalibrationTexts& texts, const Size& box);
Rect noteBelowButtonsExtent(Canvas& canvas, const CalibrationTexts& texts, const Size& box);

}  // namespace touchpanel
