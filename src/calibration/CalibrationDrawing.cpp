#include "calibration/CalibrationDrawing.h"

#include <array>

namespace touchpanel {
namespace {

struct Disc {
  float diameter;
  Color color;
};

/// From the outside inwards.
constexpr std::array<Disc, 5> kBullsEye = {{{50, color::kWhite},
                                            {40, kBackgroundBlue},
                                            {30, color::kWhite},
                                            {20, kBackgroundBlue},
                                            {10, color::kRed}}};

Point countDownOrigin(const Size& box) { return {box.width / 2 - 10, box.height / 2 - 150}; }
Point noteOrigin(const Size& box) { return {box.width / 2 - 250, box.height / 2}; }
Point noteBelowButtonsOrigin(const Size& box) { return {box.width / 2 - 250, box.height / 2 - 130}; }

}  // namespace

void drawBullsEye(Canvas& canvas, const Point& target) {
  for (const auto& disc : kBullsEye) {
    const float radius = disc.diameter / 2;
    canvas.fillOval({target.x - radius, target.y - radius, disc.diameter, disc.diameter}, disc.color);
  }
}

void drawCountDown(Canvas& canvas, const CalibrationTexts& texts, const Size& box) {
  canvas.drawText(texts.timerString, countDownOrigin(box));
}

void drawNote(Canvas& canvas, const CalibrationTexts& texts, const Size& box) {
  canvas.drawText(texts.tipString, noteOrigin(box));
}

void drawNoteBelowButtons(Canvas& canvas, const CalibrationTexts& texts, const Size& box) {
  canvas.drawText(texts.tipString, noteBelowButtonsOrigin(box));
}

Rect countDownExtent(Canvas& canvas, const CalibrationTexts& texts, const Size& box) {
  return canvas.textExtent(texts.timerString, countDownOrigin(box));
}

Rect noteExtent(Canvas& canvas, const CalibrationTexts& texts, const Size& box) {
  return canvas.textExtent(texts.tipString, noteOrigin(box));
}

Rect noteBelowButtonsExtent(Canvas& canvas, const CalibrationTexts& texts, const Size& box) {
  return canvas.textExtent(texts.tipString, noteBelowButtonsOrigin(box));
}

}  // namespace touchpanel
