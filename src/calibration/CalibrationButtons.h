#pragma once

#include <array>
#include <cstdint>

#include "calibration/CalibrationTexts.h"
#include "platform/Canvas.h"

namespace touchpanel {

/// The buttons of a finished grid, by the numbers that `ucBtnFlag` and buttonPosition() use.
namespace calibration_button {
inline constexpr std::uint8_t kNone = 0;
inline constexpr std::uint8_t kReCalibrate = 1;
inline constexpr std::uint8_t kOk = 2;
inline constexpr std::uint8_t kCancel = 3;
}  // namespace calibration_button

/// The button whose inside holds `location`, kNone when there is none; edges belong to no button. The buttons
/// stand in a row in the middle of `box`, whose lower-left corner is the origin.
std::uint8_t buttonPosition(const Point& location, const Size& box);

/// Where the buttons are drawn, in the order of their numbers.
std::array<Rect, 3> buttonRects(const Size& box);

/// Draws the three buttons with their labels, the one numbered `held` as pressed.
void drawButtons(Canvas& canvas, const CalibrationTexts& texts, const Size& box, std::uint8_t held);

}  // namespace touchpanel
