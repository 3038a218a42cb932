#pragma once

#include <memory>
#include <string>

#include "app/SelectedDeviceFacts.h"
#include "calibration/TableReloader.h"
#include "platform/StatusLine.h"
#include "platform/View.h"

namespace touchpanel {

/// The full-screen window of one calibration run, and the run's way back to the controller. When the window
/// closes, the status line says whether the result was accepted.
class RunWindow final : public ViewWindow, public TableReloader {
 public:
  /// `device` is the touchscreen's name for the status line.
  RunWindow(std::unique_ptr<FullScreenWindow> window, TableReloader& controller, SelectedDeviceFacts& facts,
            StatusLine& statusLine, std::string device);

  /// Shows `view` above everything and gives it the keyboard. The view must outlive this window.
  void present(View& view);

  void setNeedsDisplay() override { window_->setNeedsDisplay(); }
  void close() override;
  /// Called by a run whose result was accepted.
  void reloadTableViewData() override;

 private:
  std::unique_ptr<FullScreenWindow> window_;
  TableReloader& controller_;
  SelectedDeviceFacts& facts_;
  StatusLine& statusLine_;
  std::string device_;
  bool accepted_ = false;
};

}  // namespace touchpanel
