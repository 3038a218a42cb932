#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

namespace touchpanel::testing {

/// Pointer and keyboard as the user works them: events of the X server where there is one, so that grabs,
/// focus and stacking are the real ones; else events of the toolkit.
class UserInput {
 public:
  /// Locations are global, in pixels of the screen.
  void press(const QPoint& location);
  void release(const QPoint& location);
  void drag(const QPoint& from, const QPoint& to);
  void click(const QPoint& location) {
    press(location);
    release(location);
  }
  void click(const QWidget& widget) { click(widget.mapToGlobal(widget.rect().center())); }
  /// `keys` is like "Return", "ctrl+k" or "alt+t".
  void type(const QString& keys);
};

}  // namespace touchpanel::testing
