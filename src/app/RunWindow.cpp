#include "app/RunWindow.h"

namespace touchpanel {

RunWindow::RunWindow(std::unique_ptr<FullScreenWindow> window, TableReloader& controller,
                     StatusLine& statusLine, std::string device)
    : window_(std::move(window)),
      controller_(controller),
      statusLine_(statusLine),
      device_(std::move(device)) {}

void RunWindow::present(View& view) {
  window_->setContentView(view);
  window_->setShieldingLevel();
  window_->makeKeyAndOrderFront();
  window_->setInitialFirstResponder(view);
}

void RunWindow::close() {
  window_->close();
  statusLine_.show({accepted_ ? StatusText::CalibrationSaved : StatusText::CalibrationLeft, device_});
}

void RunWindow::reloadTableViewData() {
  accepted_ = true;
  controller_.reloadTableViewData();
}

}  // namespace touchpanel
