#pragma once

#include <QApplication>
#include <QKeySequence>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace touchpanel::testing {

/// Pointer and keyboard as the user works them: events of the X server where there is one, so that grabs,
/// focus and stacking are the real ones; else events of the toolkit. Locations are global, in pixels.
class UserInput {
 public:
  void press(const QPoint& location) { work("mousedown", QTest::MousePress, location); }
  void release(const QPoint& location) { work("mouseup", QTest::MouseRelease, location); }
  void click(const QPoint& location) {
    press(location);
    release(location);
  }
  /// What a touch driver makes of a finger that holds still: a click of the right button.
  void hold(const QPoint& location) {
    work("mousedown", QTest::MousePress, location, Qt::RightButton);
    work("mouseup", QTest::MouseRelease, location, Qt::RightButton);
  }
  void click(const QWidget& widget) { click(widget.mapToGlobal(widget.rect().center())); }
  /// `keys` is like "Return", "ctrl+k" or "alt+t".
  void type(const QString& keys) {
    if (hasServer()) return server({"key", keys});
    const auto combination = QKeySequence(QString(keys).replace("comma", ","))[0];
    ASSERT_NE(QGuiApplication::focusWindow(), nullptr);
    QTest::keyClick(QGuiApplication::focusWindow(), combination.key(), combination.keyboardModifiers());
  }

 private:
  static bool hasServer() { return QGuiApplication::platformName() == "xcb"; }
  static void server(const QStringList& arguments) {
    ASSERT_EQ(QProcess::execute("xdotool", arguments), 0) << arguments.join(' ').toStdString();
  }
  static void work(const char* serverAction, QTest::MouseAction action, const QPoint& location,
                   Qt::MouseButton button = Qt::LeftButton) {
    if (hasServer())
      return server({"mousemove", QString::number(location.x()), QString::number(location.y()), serverAction,
                     button == Qt::LeftButton ? "1" : "3"});
    QWindow* window = QGuiApplication::topLevelAt(location);
    ASSERT_NE(window, nullptr);
    QTest::mouseEvent(action, window, button, {}, window->mapFromGlobal(location));
  }
};

}  // namespace touchpanel::testing
