#pragma once

#include <QMouseEvent>
#include <QTimer>
#include <QWindow>
#include <functional>

#include "demo/DriverPointer.h"
#include "demo/measure/FingerClock.h"
#include "providers/simulated/SimulatedTouchscreen.h"

namespace touchpanel::demo {

/// Makes the mouse a finger on a simulated touchscreen: takes its real events before any window gets them,
/// touches the glass where it is while the left button is down, and lets the touchscreen's driver instance
/// lead the pointer from there. Keys are left alone.
///
///     real mouse event --> touch of the glass --> sensor, driver --> DriverPointer --> mouse event
///
/// While the finger is down the sensor reports it again and again, as sensors do, so that smoothing comes to
/// rest and a hold becomes a right click.
///
/// The driver has captured a touch before any window hears of its end, since the pointer's events wait for
/// the next turn of the event loop.
class MouseFinger final : public QObject {
 public:
  using Touchscreen = simulated::SimulatedTouchscreen;
  /// The touchscreen on which a press in this window is a touch; null where the mouse is a mouse.
  using Choice = std::function<Touchscreen*(const QWindow&)>;
  using Touched = std::function<void(const Touchscreen&, firmware::ScreenFraction, firmware::RawPoint)>;

  /// Watches the application from now on. A touchscreen that `choice` has named must stay until the finger
  /// has left it. `touched` hears of every touch and movement.
  MouseFinger(Choice choice, Touched touched, FingerClock& clock);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  bool take(const QWindow& window, const QMouseEvent& event);
  void land(Touchscreen& touchscreen, const QMouseEvent& event);
  void move(const QMouseEvent& event);
  void lift();

  Choice choice_;
  Touched touched_;
  FingerClock& clock_;
  DriverPointer pointer_;
  QTimer scan_;                  ///< reports a finger that holds still
  Touchscreen* down_ = nullptr;  ///< where the finger is; null while it is lifted
};

}  // namespace touchpanel::demo
