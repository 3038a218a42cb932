#include "calibration/RegionCalibration.h"

#include <utility>

#include "calibration/CalibrationDrawing.h"

namespace touchpanel {
namespace {

/// The veil in front of the desktop. Components this large are pinned to 1, which makes it white.
constexpr Color kVeil{240, 240, 240, 0.4F};

}  // namespace

RegionCalibration::RegionCalibration(const Rect& frame, const CalibrationPorts& ports)
    : frameWidth(frame.width),
      frameHeight(frame.height),
      run_(ports, &DriverChannel::regionCalibrationCancelled),
      screen_(run_, {frame.width, frame.height}),
      fDspWidth(frame.width),
      fDspHeight(frame.height) {}

void RegionCalibration::setCalibrateDict(DeviceEntry entry, TableReloader& controller) {
  run_.begin(std::move(entry), controller, [this] { timerCallBack(); });
}

void RegionCalibration::drawRect(Canvas& canvas) {
  if (run_.isOver()) return;
  fDspWidth = newSize.width;
  fDspHeight = newSize.height;
  if (!bDraw) {
    drawChoice(canvas);
    screen_.drawBesideChoice(canvas, {newPoint.x, newPoint.y, newSize.width, newSize.height});
    return;
  }
  canvas.fillRect({0, 0, newSize.width, newSize.height}, kBackgroundBlue);
  screen_.draw(canvas, box());
}

void RegionCalibration::drawChoice(Canvas& canvas) const {
  const Rect chosen{newPoint.x, newPoint.y, newSize.width, newSize.height};
  canvas.fillRect({0, 0, frameWidth, frameHeight}, kVeil);
  canvas.fillRect(chosen, color::kGrey);
  canvas.strokeRect(chosen, color::kWhite);
}

void RegionCalibration::mouseDown(Point location) {
  if (run_.isOver()) return;
  firstPoint = location;
  run_.setNeedsDisplay();
  screen_.press(location, box());
}

void RegionCalibration::mouseDragged(Point location) {
  if (run_.isOver()) return;
  if (fDspWidth > location.x && fDspHeight > location.y) endPoint = location;
  newPoint = {firstPoint.x, location.y};
  newSize = {location.x - firstPoint.x, firstPoint.y - location.y};
  run_.setNeedsDisplay();
}

void RegionCalibration::mouseUp(Point location) {
  if (run_.isOver()) return;
  // The grid is to be seen at once, also when this mouse-up is not taken as a touch.
  if (!std::exchange(bDraw, true)) run_.setNeedsDisplay();
  screen_.release(location);
}

void RegionCalibration::mouseMoved(Point location) {
  if (!run_.isOver()) screen_.point(location, box());
}

void RegionCalibration::keyDown(std::uint16_t keyCode) {
  if (run_.isOver()) return;
  if (keyCode == kKeyEscape) {
    run_.saveCalibData(false);
    run_.exit();
  } else if (keyCode == kKeyReturn && run_.isCollecting()) {
    run_.saveCalibData(true);
    run_.exit();
  }
}

void RegionCalibration::timerCallBack() {
  if (!run_.isOver() && !run_.countDown()) run_.exit();
}

}  // namespace touchpanel
