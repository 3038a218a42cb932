#pragma once

#include <memory>
#include <utility>

#include "app/CalibrationWrites.h"
#include "app/SelectedDeviceFacts.h"
#include "calibration/CalibrationRun.h"
#include "platform/StatusLine.h"
#include "platform/View.h"

namespace touchpanel {

/// The full-screen window of one calibration run, and the run's way back to the controller. When the window
/// closes, the status line says what came of it.
class RunWindow final : public ViewWindow, public TableReloader {
 public:
  /// `run` is shown in the window, which closes before it goes; `screen` is the size of both, in points.
  RunWindow(std::unique_ptr<FullScreenWindow> window, const Size& screen, const CalibrationRun& run,
            TableReloader& controller, CalibrationWrites& writes, SelectedDeviceFacts& facts,
            StatusLine& statusLine)
      : window_(std::move(window)),
        screen_(screen),
        run_(run),
        controller_(controller),
        writes_(writes),
        facts_(facts),
        statusLine_(statusLine) {}

  /// Shows `view` above everything and gives it the keyboard. The view must outlive this window.
  void present(View& view);

  void setNeedsDisplay() override { window_->setNeedsDisplay(); }
  void close() override;
  void reloadTableViewData() override { controller_.reloadTableViewData(); }

 private:
  std::unique_ptr<FullScreenWindow> window_;
  const Size screen_;
  const CalibrationRun& run_;
  TableReloader& controller_;
  CalibrationWrites& writes_;
  SelectedDeviceFacts& facts_;
  StatusLine& statusLine_;
};

}  // namespace touchpanel
