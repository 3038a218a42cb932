#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "calibration/CalibrationTexts.h"
#include "calibration/FitExamination.h"
#include "calibration/RunResult.h"
#include "calibration/TableReloader.h"
#include "calibration/TouchCollection.h"
#include "discovery/ContextStore.h"
#include "discovery/DeviceEntry.h"
#include "discovery/DriverChannel.h"
#include "platform/Application.h"
#include "platform/RunLoop.h"
#include "platform/View.h"

namespace touchpanel {

/// What a calibration works with beside its window and its device. All outlive it.
struct CalibrationPorts {
  DriverChannel& driver;
  RunLoop& runLoop;
  Cursor& cursor;
  Presentation& presentation;
  ContextStore& contextStore;
  /// Of the screen that the calibration is shown on. Without one, nothing is shown beside targets, note, number and
  /// buttons.
  std::optional<SurfaceScale> scale = {};
  std::int32_t turn = 0;  ///< of that screen's picture, 0..3 quarter turns clockwise
};

/// One calibration of one touchscreen, without drawing: everything exchanged with the driver, the device entry
/// and the device. A calibration view owns one and decides from its events which of the steps below
/// comes next. What came of it is in result().
///
/// A run that is over (exit(), close()) does nothing any more; its view asks isOver() first, in every event.
class CalibrationRun {
 public:
  /// The message that cancels a run in the driver instance.
  using CancelMessage = Status (DriverChannel::*)(RegistryObject, bool status, const _CALIB_PARAMS&);

  CalibrationRun(const CalibrationPorts& ports, CancelMessage cancelMessage);
  CalibrationRun(const CalibrationRun&) = delete;
  CalibrationRun& operator=(const CalibrationRun&) = delete;
  ~CalibrationRun();

  /// `window` shows the view and is closed with the run; not owned.
  void setWindow(ViewWindow& window) { window_ = &window; }

  /// Takes the entry's device context, puts the driver into capture and starts calling `timerCallBack` every
  /// second. `controller` must outlive the run. A driver that refuses capture, or does not answer, ends the
  /// run at once.
  void begin(DeviceEntry entry, TableReloader& controller, std::function<void()> timerCallBack);

  /// Switches the driver's capture of raw touches on or off.
  Status startCalib(bool capture);
  /// Takes what the driver captured last, when it belongs to the target shown.
  void getPoints();
  /// One second has passed. False, with nothing done, when none was left.
  bool countDown();

  /// The grid is finished: touches go to the desktop again, and the result is tried once.
  void leaveCollecting();
  void tryOnce(const Size& box);
  /// Starts collecting again. Trial and backup stay as they are.
  void reCalibrate();
  /// Collects the touch of one target of the finished grid once more; then the grid is finished and tried again.
  void takeAgain(std::int32_t target);
  /// True: solves and hands the result to the driver as a trial; nothing happens when there is no solution.
  /// False: goes back to what was there before the run.
  void saveCalibData(bool save);
  /// Writes the result to where the device keeps it, and ends the run. Blocks for the time of the exchange.
  void btnOk();

  /// Gives the driver its touch mode back and closes the window.
  void exit();
  /// Closes the window and sends nothing: the driver instance cannot be used, for the reason `why`.
  void close(Status why);

  bool isOver() const { return !texts_; }
  bool isCollecting() const { return touches_.isCollecting(mode()); }
  bool isFinished() const { return touches_.isFinished(mode()); }
  std::int32_t mode() const { return currentDict->integer(settings_key::kCalibrateMode); }
  RegistryObject handle() const { return registryObjectOf(*currentDict, entry_key::kHandle); }
  DriverChannel& driver() { return ports_.driver; }
  Cursor& cursor() { return ports_.cursor; }

  TouchCollection& touches() { return touches_; }
  const TouchCollection& touches() const { return touches_; }
  /// Only while the run is not over.
  const CalibrationTexts& texts() const { return *texts_; }
  const _DEVICT_CONTEXT& deviceContext() const { return DeviceContext; }
  const _DEVICT_CONTEXT& contextBefore() const { return BakDeviceContext; }
  const DeviceEntry& entry() const { return currentDict; }
  /// Complete before the window is closed.
  const RunResult& result() const { return result_; }

  /// The finished grid that is tried, examined; null before.
  const FitExamination* fit() const { return fit_ ? &*fit_ : nullptr; }
  /// Seconds after which the run ends by itself, as of the last tick or touch.
  std::int32_t secondsLeft() const { return secondsLeft_; }
  /// The touch that was accepted last, while it is new.
  struct Accepted {
    std::int32_t target = 0;
    std::int32_t ticks = 0;  ///< seconds that began since
  };
  const std::optional<Accepted>& accepted() const { return accepted_; }
  const std::optional<SurfaceScale>& scale() const { return ports_.scale; }
  std::int32_t turn() const { return ports_.turn; }

  void setNeedsDisplay();

 private:
  bool solve();
  void collectAgain();
  void leaveScreen();
  void keepFailure(Status status);

  CalibrationPorts ports_;
  CancelMessage cancelMessage_;
  ViewWindow* window_ = nullptr;
  TouchCollection touches_;
  std::optional<CalibrationTexts> texts_{std::in_place};  ///< none once the run is over

  TimerId timer = 0;
  DeviceEntry currentDict = std::make_shared<Dictionary>();
  bool bSaveCalibData = false;  ///< the finished grid was solved and tried
  std::int32_t iTimerCount = 30;
  _DEVICT_CONTEXT DeviceContext{};     ///< working copy
  _DEVICT_CONTEXT BakDeviceContext{};  ///< as it was before the run
  TableReloader* pMyController = nullptr;
  RunResult result_;

  bool wasTouchOff_ = false;  ///< the driver delivered no touches when the run began
  std::int32_t secondsLeft_ = 30;
  std::optional<FitExamination> fit_;
  std::optional<Accepted> accepted_;
};

}  // namespace touchpanel
