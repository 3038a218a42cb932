#pragma once

#include <QFrame>
#include <QLabel>

namespace touchpanel {

/// What the user sees while the touchscreens are read, before there is a main window.
class StartUpPanel final : public QFrame {
 public:
  StartUpPanel();
  /// Shows the panel and returns once it can be drawn on, or after half a second.
  void open();
  /// Drawn at once, without the event loop.
  void tell(const QString& text);

 private:
  QLabel* message_;
};

}  // namespace touchpanel
