#include "calibration/CalibrationButtons.h"

#include <cstddef>

namespace touchpanel {
namespace {

/// Dark enough for the yellow labels to be read.
constexpr Color kButtonGrey{0.35F, 0.35F, 0.35F, 1};

/// Horizontal positions are relative to the middle of the box.
struct Button {
  std::uint8_t number;
  float left;
  float right;
  float labelLeft;
  StyledText CalibrationTexts::*label;
};

constexpr std::array<Button, 3> kButtons = {{
    {calibration_button::kReCalibrate, -140, -60, -133, &CalibrationTexts::calibString},
    {calibration_button::kOk, -40, 40, -10, &CalibrationTexts::okString},
    {calibration_button::kCancel, 60, 140, 80, &CalibrationTexts::cancelString},
}};

}  // namespace

std::uint8_t buttonPosition(const Point& location, const Size& box) {
  const float cx = box.width / 2, cy = box.height / 2;
  if (!(cy - 20 < location.y && location.y < cy + 20)) return calibration_button::kNone;
  for (const auto& button : kButtons)
    if (cx + button.left < location.x && location.x < cx + button.right) return button.number;
  return calibration_button::kNone;
}

std::array<Rect, 3> buttonRects(const Size& box) {
  const float cx = box.width / 2, cy = box.height / 2;
  std::array<Rect, 3> rects;
  for (std::size_t i = 0; i < rects.size(); ++i) rects[i] = {cx + kButtons[i].left, cy - 20, 80, 40};
  return rects;
}

void drawButtons(Canvas& canvas, const CalibrationTexts& texts, const Size& box, std::uint8_t held) {
  const float cx = box.width / 2, cy = box.height / 2;
  const auto rects = buttonRects(box);
  for (std::size_t i = 0; i < rects.size(); ++i)
    canvas.fillRect(rects[i], kButtons[i].number == held ? color::kRed : kButtonGrey);
  for (const auto& button : kButtons) canvas.drawText(texts.*button.label, {cx + button.labelLeft, cy - 10});
}

}  // namespace touchpanel
