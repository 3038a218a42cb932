#pragma once

#include "calibration/Calibration.h"
#include "firmware/Firmware.h"
#include "providers/simulated/SimulatedTouchscreens.h"

namespace touchpanel::benchmarks {

class NoLoop final : public RunLoop {
 public:
  void addSource(RunLoopSource&) override {}
  void removeSource(RunLoopSource&) override {}
  TimerId startRepeatingTimer(std::chrono::milliseconds, std::function<void()>) override { return 1; }
  void invalidateTimer(TimerId) override {}
};
class NoScreen final : public Cursor, public Presentation, public TableReloader {
 public:
  void hide() override {}
  void show() override {}
  void setSystemUIMode(int, int) override {}
  void reloadTableViewData() override {}
};
class NoFiles final : public PropertyListFiles {
 public:
  std::optional<Dictionary> read(const std::string&, Status& status) override {
    status = kErrorNotFound;
    return {};
  }
  Status writeAtomically(const std::string&, const Dictionary&) override { return kErrorNotFound; }
  Status move(const std::string&, const std::string&) override { return kErrorNotFound; }
};
class NoReports final : public Clock, public Diagnostics, public WaitNotice {
 public:
  void sleep(std::chrono::milliseconds) override {}
  void line(std::string_view) override {}
  void waitingFor(const WaitMessage&) override {}
  void done() override {}
};

/// A run on a simulated touchscreen, up to the given number of touches, drawn on `canvas` meanwhile.
class RunningCalibration {
 public:
  RunningCalibration(std::int32_t mode, std::int32_t touches, const Rect& frame, Canvas& canvas)
      : view(frame, {driver_, loop_, screen_, screen_, store_}) {
    machine_.plugIn(touchscreen_);
    entry_->set(settings_key::kCalibrateMode, mode);
    entry_->set(entry_key::kHandle, static_cast<std::int32_t>(machine_.handleOf(touchscreen_)));
    view.setCalibrateDict(entry_, screen_);
    for (std::int32_t i = 0; i < touches; ++i) {
      view.drawRect(canvas);
      const double x = 0.05 + 0.225 * (i % 5), y = 0.05 + 0.225 * (i / 5);
      touchscreen_.touch({x, y}, std::chrono::seconds(i));
      touchscreen_.release(std::chrono::milliseconds(1000 * i + 50));
      view.mouseUp({1, 1});
    }
  }

 private:
  simulated::SimulatedTouchscreens machine_;
  simulated::SimulatedTouchscreen& touchscreen_ =
      machine_.add({"benchmark", firmware::exampleDevice(DeviceKind::Infrared), {}, 0x14100000});
  NoLoop loop_;
  NoScreen screen_;
  NoFiles files_;
  NoReports reports_;
  DriverChannel driver_{machine_.registry()};
  ContextStore store_{machine_.usb(), files_, {}, {reports_, reports_}, reports_};
  DeviceEntry entry_ = std::make_shared<Dictionary>();

 public:
  Calibration view;
};

}  // namespace touchpanel::benchmarks
