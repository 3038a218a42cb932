#include "calibration/CalibrationAdditions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "calibration/CalibrationButtons.h"
#include "calibration/CalibrationDrawing.h"
#include "platform/Translatable.h"

namespace touchpanel {
namespace {

constexpr float kSmallerText = 0.75F;
/// From the laid-down button to the frame around it, and the frame's own width.
constexpr float kFrameGap = 3, kFrameWidth = 4;

const char* const kTarget = TRANSLATABLE_TEXT("CalibrationScreen", "Target %1 of %2");
const char* const kTargetAgain = TRANSLATABLE_TEXT("CalibrationScreen", "Once more: target %1 of %2");
const char* const kTimeLeft = TRANSLATABLE_TEXT("CalibrationScreen", "Ends by itself in %1 s");
const char* const kFits = TRANSLATABLE_TEXT("CalibrationScreen", "The touches fit each other.");
const char* const kWrongTouch =
    TRANSLATABLE_TEXT("CalibrationScreen", "The touch with a ring does not fit the others.");
const char* const kTouchTheRing =
    TRANSLATABLE_TEXT("CalibrationScreen", "Touch the ring to take this touch again.");
const char* const kWrongTouches =
    TRANSLATABLE_TEXT("CalibrationScreen", "The touches with a ring do not fit the others.");
const char* const kTouchARing =
    TRANSLATABLE_TEXT("CalibrationScreen", "Touch a ring to take that touch again.");
const char* const kDisagree = TRANSLATABLE_TEXT("CalibrationScreen", "These touches do not fit together.");
const char* const kNoSolution =
    TRANSLATABLE_TEXT("CalibrationScreen", "These touches give no calibration; nothing has changed.");
const char* const kFolds = TRANSLATABLE_TEXT(
    "CalibrationScreen", "This calibration folds the screen: different places act as the same one.");
const char* const kTakeAll =
    TRANSLATABLE_TEXT("CalibrationScreen", "Touch ReCalibrate to take all touches again.");
const char* const kErrors =
    TRANSLATABLE_TEXT("CalibrationScreen", "Error of the touches: mean %1 px, largest %2 px");
const char* const kErrorsInMillimetres =
    TRANSLATABLE_TEXT("CalibrationScreen", "Error of the touches: mean %1 px (%3 mm), largest %2 px (%4 mm)");
const char* const kHowToDrag =
    TRANSLATABLE_TEXT("CalibrationScreen", "Drag a rectangle from its upper left to its lower right corner.");
const char* const kWhereTargetsAppear = TRANSLATABLE_TEXT(
    "CalibrationScreen", "The targets will stand in a box of that size at the lower left of the screen.");

/// What is to be said of a fit, and what can be done, if anything has to.
struct Verdict {
  const char* finding;
  const char* advice;
};

Verdict verdictOf(const FitReport& report) {
  if (!report.isSolved) return {kNoSolution, kTakeAll};
  if (const auto wrong = report.wrongTouches(); wrong > 0)
    return wrong == 1 ? Verdict{kWrongTouch, kTouchTheRing} : Verdict{kWrongTouches, kTouchARing};
  if (report.disagrees) return {kDisagree, kTakeAll};
  return report.folds ? Verdict{kFolds, kTakeAll} : Verdict{kFits, nullptr};
}

StyledText errorsOf(const FitReport& report, const AdditionStyle& style) {
  const auto& [mean, largest] = report.pixels;
  if (!report.millimetres) return style.text(kErrors, {{mean, 1}, {largest, 1}});
  const auto& mm = *report.millimetres;
  return style.text(kErrorsInMillimetres, {{mean, 1}, {largest, 1}, {mm.mean, 1}, {mm.largest, 1}});
}

std::vector<Rect> targetsOf(std::int32_t mode, const Size& box, float radius) {
  std::vector<Rect> targets;
  if (mode != kFourTargets && mode != kTwentyFiveTargets) return targets;
  targets.reserve(static_cast<std::size_t>(mode));
  for (std::int32_t k = 0; k < mode; ++k)
    targets.push_back(rectAround(
        mode == kFourTargets ? fourPointTarget(k, box) : gridTarget(1 + k / 5, k % 5, box), radius));
  return targets;
}

Rect normalised(const Rect& rect) {
  return {std::min(rect.x, rect.x + rect.width), std::min(rect.y, rect.y + rect.height), std::abs(rect.width),
          std::abs(rect.height)};
}

}  // namespace

void CalibrationAdditions::draw(Canvas& canvas, const Size& box) {
  if (!run_.isFinished()) pointed_ = calibration_button::kNone;
  if (!(box.width > 0 && box.height > 0)) return;
  const Rect bounds{0, 0, std::min(box.width, size_.width), std::min(box.height, size_.height)};
  const auto number = countDownExtent(canvas, run_.texts(), box);
  FreeSpace texts(bounds, style_.margin), marks(bounds, kFrameGap);
  const auto occupy = [&](const Rect& rect) {
    texts.occupy(rect);
    marks.occupy(rect);
  };
  occupy(number);
  if (run_.isFinished()) {
    occupy(noteBelowButtonsExtent(canvas, run_.texts(), box));
    for (const auto& button : buttonRects(box)) occupy(button);
    drawButtonFrame(canvas, box, marks);
  } else if (run_.isCollecting()) {
    occupy(noteExtent(canvas, run_.texts(), box));
  }
  if (run_.isFinished() || run_.isCollecting()) {
    for (const auto& target : targetsOf(run_.mode(), box, kBullsEyeRadius)) texts.occupy(target);
    if (const auto* fit = run_.fit(); fit != nullptr && run_.isFinished())
      for (const auto& touch : fit->report().touches())
        if (!touch.fits) texts.occupy(rectAround(viewPoint(touch.units.meant, box), style_.ringRadius));
  }
  if (const auto place = drawTimeLeft(canvas, number, texts)) marks.occupy(*place);
  if (run_.isFinished())
    drawFinished(canvas, box, texts, marks);
  else if (run_.isCollecting())
    drawCollecting(canvas, box, texts, marks);
}

void CalibrationAdditions::drawCollecting(Canvas& canvas, const Size& box, FreeSpace& texts,
                                          FreeSpace& marks) const {
  const auto& touches = run_.touches();
  const auto* pattern = touches.isAgain ? kTargetAgain : kTarget;
  const auto banner = style_.text(pattern, {{touches.iTouchIndex + 1.0}, {static_cast<double>(run_.mode())}});
  if (const auto place = drawBanner(canvas, banner, box, texts)) marks.occupy(*place);
  const auto& accepted = run_.accepted();
  if (!accepted || accepted->target >= run_.mode()) return;
  const auto targets = targetsOf(run_.mode(), box, kBullsEyeRadius);
  marks.occupy(targets[static_cast<std::size_t>(touches.iTouchIndex)]);
  drawTick(canvas, targets[static_cast<std::size_t>(accepted->target)], accepted->ticks, marks);
}

void CalibrationAdditions::drawTick(Canvas& canvas, const Rect& target, std::int32_t age,
                                    FreeSpace& marks) const {
  const Point middle{target.x + target.width / 2, target.y + target.height / 2};
  const float size = target.width, away = size + style_.margin;
  const auto place = marks.place(
      {size, size}, std::to_array<Point>({middle, {middle.x, middle.y - away}, {middle.x, middle.y + away}}));
  if (!place) return;
  auto ink = AdditionStyle::kInk;
  if (age > 0) ink.alpha = 0.4F;
  const auto at = [&](float x, float y) { return Point{place->x + x * size, place->y + y * size}; };
  canvas.drawLine(at(0.15F, 0.5F), at(0.4F, 0.2F), ink, 2 * style_.stroke);
  canvas.drawLine(at(0.4F, 0.2F), at(0.85F, 0.8F), ink, 2 * style_.stroke);
}

void CalibrationAdditions::drawFinished(Canvas& canvas, const Size& box, FreeSpace& texts, FreeSpace& marks) {
  marks_.clear();
  const auto* fit = run_.fit();
  if (fit == nullptr) return;
  const auto& report = fit->report();
  const auto [finding, advice] = verdictOf(report);
  std::vector<StyledText> lines{style_.text(finding)};
  if (advice != nullptr) lines.push_back(style_.text(advice));
  if (report.isSolved) lines.push_back(errorsOf(report, style_));
  std::optional<Rect> above;
  for (auto& line : lines)
    if (const auto place = drawBanner(canvas, std::move(line), box, texts, above)) {
      marks.occupy(*place);
      above = place;
    }
  if (report.isSolved) marks_.draw(canvas, *fit, box, style_, marks);
}

void CalibrationAdditions::drawButtonFrame(Canvas& canvas, const Size& box, const FreeSpace& marks) const {
  if (pointed_ == calibration_button::kNone) return;
  const auto button = buttonRects(box)[pointed_ - 1U];
  constexpr float kOut = kFrameGap + kFrameWidth;
  const float left = button.x - kOut, width = button.width + 2 * kOut;
  // The note may come close to the lower one.
  for (const auto& bar :
       std::to_array<Rect>({{left, button.y + button.height + kFrameGap, width, kFrameWidth},
                            {left, button.y, kFrameWidth, button.height},
                            {left + width - kFrameWidth, button.y, kFrameWidth, button.height},
                            {left, button.y - kOut, width, kFrameWidth}}))
    if (marks.isFree(bar)) canvas.fillRect(bar, AdditionStyle::kInk);
}

std::optional<Rect> CalibrationAdditions::drawTimeLeft(Canvas& canvas, const Rect& number,
                                                       FreeSpace& texts) const {
  auto text = style_.text(kTimeLeft, {{static_cast<double>(run_.secondsLeft())}});
  const Point middle{number.x + number.width / 2, number.y + number.height / 2};
  const float away = 1 + style_.margin;
  for (int attempt = 0; attempt < 2; ++attempt) {
    const auto extent = canvas.textExtent(text, {0, 0});
    const float up = (number.height + extent.height) / 2 + away;
    const float aside = (number.width + extent.width) / 2 + away;
    const auto place =
        texts.place({extent.width, extent.height}, std::to_array<Point>({{middle.x, middle.y - up},
                                                                         {middle.x + aside, middle.y},
                                                                         {middle.x - aside, middle.y},
                                                                         {middle.x, middle.y + up}}));
    if (place) {
      canvas.drawText(text, {place->x, place->y});
      return place;
    }
    text.fontSize *= kSmallerText;
  }
  return std::nullopt;
}

std::optional<Rect> CalibrationAdditions::drawBanner(Canvas& canvas, StyledText text, const Size& box,
                                                     FreeSpace& texts,
                                                     const std::optional<Rect>& above) const {
  for (int attempt = 0; attempt < 2; ++attempt) {
    const auto extent = canvas.textExtent(text, {0, 0});
    const float x = box.width / 2;
    std::vector<Point> centres;
    if (above) centres.push_back({x, above->y - style_.margin - 1 - extent.height / 2});
    // Between two rows of twenty-five targets, which is also free of four; the upper ones first.
    for (const float y : {0.84F, 0.61F, 0.39F, 0.16F, 0.75F, 0.25F})
      for (const float line : {1.4F, 0.7F, 0.0F, -0.7F})
        centres.push_back({x, y * box.height + line * extent.height});
    if (const auto place = texts.place({extent.width, extent.height}, centres)) {
      canvas.drawText(text, {place->x, place->y});
      return place;
    }
    text.fontSize *= kSmallerText;
  }
  return std::nullopt;
}

void CalibrationAdditions::drawChoice(Canvas& canvas, const Rect& chosen) const {
  FreeSpace space({0, 0, size_.width, size_.height}, style_.margin);
  if (const auto rect = normalised(chosen); rect.width > 0 && rect.height > 0) space.occupy(rect);
  auto last = drawBanner(canvas, style_.text(kHowToDrag), size_, space);
  last = drawBanner(canvas, style_.text(kWhereTargetsAppear), size_, space, last);
  drawBanner(canvas, style_.text(kTimeLeft, {{static_cast<double>(run_.secondsLeft())}}), size_, space, last);
}

bool CalibrationAdditions::point(const Point& location, const Size& box) {
  const auto now = run_.isFinished() ? buttonPosition(location, box) : calibration_button::kNone;
  return std::exchange(pointed_, now) != now;
}

bool CalibrationAdditions::press(const Point& location) {
  marks_.press(run_.isFinished() ? marks_.ringAt(location) : std::nullopt);
  return marks_.pressed().has_value();
}

std::optional<std::int32_t> CalibrationAdditions::release(const Point& location) {
  const auto pressed = marks_.pressed();
  marks_.press(std::nullopt);
  if (!pressed || !run_.isFinished() || marks_.ringAt(location) != pressed) return std::nullopt;
  return pressed;
}

}  // namespace touchpanel
