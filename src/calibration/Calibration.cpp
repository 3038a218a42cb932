#include "calibration/Calibration.h"

#include <utility>

#include "calibration/CalibrationDrawing.h"

namespace touchpanel {

Calibration::Calibration(const Rect& frame, const CalibrationPorts& ports)
    : run_(ports, &DriverChannel::pointCalibrationCancelled),
      screen_(run_, {frame.width, frame.height}),
      fDspWidth(frame.width),
      fDspHeight(frame.height) {
  run_.cursor().hide();
}

void Calibration::setCalibrateDict(DeviceEntry entry, TableReloader& controller) {
  if (entry) iHandle = registryObjectOf(*entry, entry_key::kHandle);
  run_.begin(std::move(entry), controller, [this] { timerCallBack(); });
}

void Calibration::drawRect(Canvas& canvas) {
  if (run_.isOver()) return;
  if (!run_.driver().probeConfigration(iHandle)) {
    run_.close(kErrorNoDevice);
    return;
  }
  canvas.fillRect({0, 0, fDspWidth, fDspHeight}, kBackgroundBlue);
  screen_.draw(canvas, box());
}

void Calibration::mouseDown(Point location) {
  if (!run_.isOver()) screen_.press(location, box());
}

void Calibration::mouseDragged(Point /*location*/) {}

void Calibration::mouseUp(Point location) {
  if (!run_.isOver()) screen_.release(location);
}

void Calibration::mouseMoved(Point location) {
  if (!run_.isOver()) screen_.point(location, box());
}

void Calibration::keyDown(std::uint16_t keyCode) {
  if (run_.isOver()) return;
  if (keyCode == kKeyEscape) cancel();
  if (keyCode == kKeyReturn && run_.isFinished()) run_.btnOk();
}

void Calibration::timerCallBack() {
  if (!run_.isOver() && !run_.countDown()) cancel();
}

void Calibration::cancel() {
  run_.saveCalibData(false);
  run_.exit();
}

}  // namespace touchpanel
