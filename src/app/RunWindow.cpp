#include "app/RunWindow.h"

#include "platform/Translatable.h"

namespace touchpanel {

RunWindow::RunWindow(std::unique_ptr<FullScreenWindow> window, TableReloader& controller,
                     SelectedDeviceFacts& facts, StatusLine& statusLine, std::string device)
    : window_(std::move(window)),
      controller_(controller),
      facts_(facts),
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
  facts_.update();
  statusLine_.show(
      {accepted_ ? TRANSLATABLE_TEXT("StatusLine", "The new calibration of %1 was accepted.")
                 : TRANSLATABLE_TEXT("StatusLine",
                                     "The calibration of %1 ended; nothing was written to the touchscreen."),
       device_});
}

void RunWindow::reloadTableViewData() {
  accepted_ = true;
  controller_.reloadTableViewData();
}

}  // namespace touchpanel
