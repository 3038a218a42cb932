#include "calibration/CalibrationRun.h"

#include <utility>

#include "calibration/CalibrationSolver.h"

namespace touchpanel {
namespace {

constexpr std::chrono::seconds kTick{1};
constexpr std::int32_t kSecondsAfterTouch = 29;
/// Touch mode in which the finished grid is tried.
constexpr std::int32_t kTrialTouchMode = 2;
constexpr std::int32_t kTicksOfAccepted = 2;

}  // namespace

CalibrationRun::CalibrationRun(const CalibrationPorts& ports, CancelMessage cancelMessage)
    : ports_(ports), cancelMessage_(cancelMessage) {}

CalibrationRun::~CalibrationRun() { ports_.runLoop.invalidateTimer(timer); }

void CalibrationRun::begin(DeviceEntry entry, TableReloader& controller,
                           std::function<void()> timerCallBack) {
  if (isOver() || timer != 0) return;
  if (entry) currentDict = std::move(entry);
  pMyController = &controller;
  DeviceContext = contextOf(*currentDict);
  BakDeviceContext = DeviceContext;
  const Status capture = startCalib(true);
  // A finger that is to calibrate and to press buttons must be heard; exit() takes this back.
  wasTouchOff_ = capture == kSuccess && !ports_.driver.isTouchEnabled(handle());
  if (wasTouchOff_) ports_.driver.enableTouch(handle(), true);
  timer = ports_.runLoop.startRepeatingTimer(kTick, std::move(timerCallBack));
  // An instance that is gone is noticed by the probes, where a view makes any.
  if (capture != kSuccess && capture != kErrorNoDevice) close(capture);
}

Status CalibrationRun::startCalib(bool capture) { return ports_.driver.setCapture(handle(), capture); }

void CalibrationRun::getPoints() {
  const auto captured = ports_.driver.readCapture(handle());
  if (!captured) return;
  if (captured->pointId != touches_.iTouchIndex) {
    ports_.driver.selectTarget(handle(), touches_.iTouchIndex);
    return;
  }
  if (captured->x == 0 || captured->y == 0) return;  // nothing was touched yet
  accepted_ = Accepted{touches_.iTouchIndex};
  touches_.take(mode(), captured->x, captured->y);
  iTimerCount = secondsLeft_ = kSecondsAfterTouch;
  setNeedsDisplay();
}

bool CalibrationRun::countDown() {
  if (iTimerCount == 0) return false;
  texts_->setSeconds(iTimerCount);
  secondsLeft_ = iTimerCount;
  if (accepted_ && ++accepted_->ticks == kTicksOfAccepted) accepted_.reset();
  setNeedsDisplay();
  --iTimerCount;
  return true;
}

void CalibrationRun::leaveCollecting() {
  ports_.driver.setMode(handle(), kTrialTouchMode);
  startCalib(false);
  ports_.cursor.show();
}

void CalibrationRun::tryOnce(const Size& box) {
  if (bSaveCalibData) return;
  bSaveCalibData = true;
  saveCalibData(true);
  fit_.emplace(touches_, mode(), result_.isSolved, DeviceContext.CalibParams, box,
               ports_.scale.value_or(SurfaceScale{}), turn());
}

void CalibrationRun::reCalibrate() {
  touches_.restart();
  collectAgain();
}

void CalibrationRun::takeAgain(std::int32_t target) {
  touches_.takeAgain(target);
  collectAgain();
  // Capture begins with target 0; out of step, it would cost the user a touch.
  ports_.driver.selectTarget(handle(), target);
}

void CalibrationRun::collectAgain() {
  iTimerCount = secondsLeft_ = kSecondsAfterTouch;
  bSaveCalibData = false;
  fit_.reset();
  accepted_.reset();
  ports_.cursor.hide();
  startCalib(true);
  setNeedsDisplay();
}

void CalibrationRun::saveCalibData(bool save) {
  auto& params = DeviceContext.CalibParams;
  if (!save) {
    DeviceContext = BakDeviceContext;
    const bool status = DeviceContext.DeviceConfig.CalibrateStatus != 0;
    result_.driver = (ports_.driver.*cancelMessage_)(handle(), status, params);
    result_.ending = RunResult::Ending::TakenBack;
    currentDict->set(entry_key::kCalibrateStatus, status ? entry_key::kYes : entry_key::kNo);
    return;
  }
  result_.isSolved = solve();
  if (!result_.isSolved) return;
  result_.wasTried = true;
  result_.driver = ports_.driver.calibrationSaved(handle(), params);
  currentDict->set(entry_key::kCalibrateStatus, entry_key::kYes);
}

bool CalibrationRun::solve() {
  auto& [paramsX, paramsY] = DeviceContext.CalibParams;
  const bool distorted = mode() != kFourTargets;
  const float *rawX = touches_.fScrX.data(), *rawY = touches_.fScrY.data();
  return generateCalibParam(touches_.fDspX.data(), touches_.fDspY.data(), rawX, rawY,
                            distorted ? kTwentyFiveTargets : kFourTargets, paramsX, paramsY, distorted,
                            {rawX, rawY});
}

void CalibrationRun::btnOk() {
  DeviceContext.DeviceConfig.CalibrateStatus = 1;
  result_.written =
      ports_.contextStore.save(currentDict->integer(entry_key::kProductID),
                               currentDict->integer(entry_key::kDeviceInterface), DeviceContext);
  result_.ending = RunResult::Ending::Accepted;
  if (pMyController) pMyController->reloadTableViewData();
  storeContext(*currentDict, DeviceContext);
  exit();
}

void CalibrationRun::exit() {
  if (isOver()) return;
  if (result_.ending == RunResult::Ending::Running) result_.ending = RunResult::Ending::Left;
  // A driver that got the calibration but not these has been lost since, and holds who knows what.
  if (const auto* touchMode = currentDict->find(settings_key::kTouchMode))
    keepFailure(ports_.driver.setMode(handle(), *touchMode));
  texts_.reset();
  ports_.runLoop.invalidateTimer(timer);
  keepFailure(startCalib(false));
  if (wasTouchOff_) ports_.driver.enableTouch(handle(), false);
  leaveScreen();
}

void CalibrationRun::keepFailure(Status status) {
  if (result_.driver == kSuccess) result_.driver = status;
}

void CalibrationRun::close(Status why) {
  if (isOver()) return;
  result_.ending = RunResult::Ending::NoDriver;
  result_.driver = why;
  texts_.reset();
  ports_.runLoop.invalidateTimer(timer);
  leaveScreen();
}

void CalibrationRun::leaveScreen() {
  ports_.cursor.show();
  if (window_) window_->close();
  ports_.presentation.setSystemUIMode(0, 1);
}

void CalibrationRun::setNeedsDisplay() {
  if (window_) window_->setNeedsDisplay();
}

}  // namespace touchpanel
