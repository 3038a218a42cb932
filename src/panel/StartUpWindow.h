#pragma once

#include <QFrame>
#include <QLabel>

namespace touchpanel {

/// What the user sees while the touchscreens are read, before there is a main window.
class StartUpWindow final : public QFrame {
 public:
  StartUpWindow();
  /// Shows the window and returns once it can be drawn on, or after half a second.
  void open();
  /// Drawn at once, without the event loop.
  void setText(const QString& text);

 private:
  QLabel* message_;
};

}  // namespace touchpanel
