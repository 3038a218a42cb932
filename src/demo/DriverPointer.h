#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

#include "platform/TouchFrames.h"

namespace touchpanel::demo {

/// The desktop's pointer as a touch driver leads it: output frames in, mouse events out to the window under
/// the pointer. A window in which a button goes down gets everything until all buttons are up again.
class DriverPointer final : public QObject {
 public:
  /// Delivers `frame` from the event loop, after whatever the driver was in the middle of. Frames arrive in
  /// the order in which they were posted, one in each turn of the loop, so a window that opens a loop of its
  /// own on a press still gets the release. Without a position the pointer stays where it is.
  ///
  /// Multi-touch contacts lead the pointer as a desktop without multi-touch has it: the first is the left
  /// button.
  void post(const OutputFrame& frame);

 private:
  void deliver(const OutputFrame& frame);
  void move(const OutputFrame& frame);
  void press(Qt::MouseButton button, bool down);
  void send(QEvent::Type type, Qt::MouseButton button);

  QPoint position_;
  Qt::MouseButtons buttons_;
  QPointer<QWindow> target_;  ///< has the pointer while a button is down
};

}  // namespace touchpanel::demo
