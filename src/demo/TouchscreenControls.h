#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "demo/FaultChoice.h"
#include "providers/simulated/SimulatedTouchscreens.h"

namespace Ui {
class TouchscreenControls;
}

namespace touchpanel::demo {

/// What can be done to one simulated touchscreen: plug it in, unplug it, give it a fault.
class TouchscreenControls final : public QWidget {
  Q_OBJECT

 public:
  /// Both must outlive the widget.
  TouchscreenControls(simulated::SimulatedTouchscreens& machine, simulated::SimulatedTouchscreen& touchscreen,
                      QWidget* parent = nullptr);
  ~TouchscreenControls() override;

  const simulated::SimulatedTouchscreen& touchscreen() const { return touchscreen_; }

 signals:
  /// It was plugged in or unplugged.
  void pluggingChanged();

 private:
  void togglePlug();
  void chooseFault();
  const FaultChoice& chosenFault() const;
  void showArgument(const FaultArgument& argument);
  void applyFault();
  void showPlugging();

  simulated::SimulatedTouchscreens& machine_;
  simulated::SimulatedTouchscreen& touchscreen_;
  std::vector<FaultChoice> faults_;
  std::unique_ptr<Ui::TouchscreenControls> ui_;
};

}  // namespace touchpanel::demo
