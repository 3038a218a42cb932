#pragma once

#include "app/DeviceFacts.h"
#include "panel/MainWindowWidget.h"

namespace touchpanel {

/// What the main window makes of the facts about the selected touchscreen: they are shown below the list, and
/// menu entries that need an earlier calibration can be used when there is one.
class FactsArea final : public FactsView {
 public:
  explicit FactsArea(MainWindowWidget& window) : window_(window) {}
  void show(const DeviceFacts& facts) override;

 private:
  MainWindowWidget& window_;
};

}  // namespace touchpanel
