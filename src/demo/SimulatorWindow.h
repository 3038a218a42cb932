#pragma once

#include <QWidget>
#include <memory>

#include "demo/measure/TouchError.h"
#include "providers/simulated/SimulatedTouchscreens.h"

class QLabel;

namespace Ui {
class SimulatorWindow;
}

namespace touchpanel::demo {

/// The window beside the control panel: what happens to the simulated touchscreens, what the mouse is, and
/// how the last touch fared. Closing it does not end the program.
class SimulatorWindow final : public QWidget {
  Q_OBJECT

 public:
  /// `machine` holds all its touchscreens already and must outlive the window.
  explicit SimulatorWindow(simulated::SimulatedTouchscreens& machine, QWidget* parent = nullptr);
  ~SimulatorWindow() override;

  /// The touchscreen on which the mouse is a finger; null while it is a mouse. Always plugged in.
  simulated::SimulatedTouchscreen* fingerOn() const;
  void showTouch(const simulated::SimulatedTouchscreen& touchscreen, const TouchReading& reading,
                 ScreenSize screen);

 private:
  void addControls(simulated::SimulatedTouchscreen& touchscreen);
  void offerMouseRoles();

  simulated::SimulatedTouchscreens& machine_;
  std::unique_ptr<Ui::SimulatorWindow> ui_;
};

}  // namespace touchpanel::demo
