#include "calibration/CalibrationScreen.h"

#include <limits>

#include "calibration/CalibrationButtons.h"
#include "calibration/CalibrationDrawing.h"

namespace touchpanel {
namespace {

/// In no button, wherever the buttons lie.
constexpr Point kNowhere{std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::quiet_NaN()};

}  // namespace

CalibrationScreen::CalibrationScreen(CalibrationRun& run, const Size& screen) : run_(run) {
  if (run.scale()) additions_.emplace(run, screen, *run.scale());
}

void CalibrationScreen::press(const Point& location, const Size& box) {
  if (!run_.isFinished()) return;
  const auto button = buttonPosition(location, box);
  if (button == calibration_button::kNone) {
    if (additions_ && additions_->press(location)) run_.setNeedsDisplay();
    return;
  }
  ucBtnFlag = button;
  run_.setNeedsDisplay();
}

void CalibrationScreen::point(const Point& location, const Size& box) {
  if (additions_ && additions_->point(location, box)) run_.setNeedsDisplay();
}

void CalibrationScreen::release(const Point& location) {
  ucBtnFlag = calibration_button::kNone;
  center = location;
  const auto again = additions_ ? additions_->release(location) : std::nullopt;
  if (run_.touches().isAgain) center = kNowhere;
  if (again)
    run_.takeAgain(*again);
  else if (run_.isCollecting())
    run_.getPoints();
  else
    run_.setNeedsDisplay();
}

void CalibrationScreen::draw(Canvas& canvas, const Size& box) {
  if (drawRun(canvas, box) && additions_) additions_->draw(canvas, box);
}

void CalibrationScreen::drawBesideChoice(Canvas& canvas, const Rect& chosen) const {
  if (additions_) additions_->drawChoice(canvas, chosen);
}

bool CalibrationScreen::drawRun(Canvas& canvas, const Size& box) {
  drawCountDown(canvas, run_.texts(), box);
  if (drawTarget(canvas, box)) return true;
  const auto mode = run_.mode();
  const bool allRowsDone = mode == kTwentyFiveTargets && run_.touches().iObjRow >= 6;
  if (!allRowsDone && !run_.isFinished()) return true;
  run_.leaveCollecting();
  drawFinished(canvas, box, calibration_button::kNone);
  if (!run_.isFinished()) return true;
  run_.tryOnce(box);
  if (ucBtnFlag == calibration_button::kNone && perform(buttonPosition(center, box))) return false;
  drawFinished(canvas, box, ucBtnFlag);
  return true;
}

bool CalibrationScreen::drawTarget(Canvas& canvas, const Size& box) {
  auto& touches = run_.touches();
  const auto mode = run_.mode();
  Point target;
  if (mode == kFourTargets && touches.isCollecting(mode)) {
    target = fourPointTarget(touches.iTouchIndex, box);
  } else if (mode == kTwentyFiveTargets && touches.iObjRow < 6) {
    touches.beginRow();
    target = gridTarget(touches.iObjRow, touches.iObjPoints, box);
  } else {
    return false;
  }
  drawBullsEye(canvas, target);
  drawNote(canvas, run_.texts(), box);
  touches.noteTarget(onGlass(driverUnits(target, box), run_.turn()));
  return true;
}

void CalibrationScreen::drawFinished(Canvas& canvas, const Size& box, std::uint8_t held) {
  drawButtons(canvas, run_.texts(), box, held);
  drawNoteBelowButtons(canvas, run_.texts(), box);
}

bool CalibrationScreen::perform(std::uint8_t button) {
  switch (button) {
    case calibration_button::kReCalibrate:
      run_.reCalibrate();
      return true;
    case calibration_button::kOk:
      run_.btnOk();
      return true;
    case calibration_button::kCancel:
      run_.saveCalibData(false);
      run_.exit();
      return true;
    default:
      return false;
  }
}

}  // namespace touchpanel
