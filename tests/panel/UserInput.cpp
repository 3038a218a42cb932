#include "UserInput.h"

#include <QApplication>
#include <QKeySequence>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace touchpanel::testing {
namespace {

bool hasServer() { return QGuiApplication::platformName() == "xcb"; }

void server(const QStringList& arguments) {
  ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0) << arguments.join(' ').toStdString();
}

QStringList at(const QPoint& location) {
  return {QStringLiteral("mousemove"), QString::number(location.x()), QString::number(location.y())};
}

/// The window under `location`; what is above everything comes first, and a modal one before that.
QWidget* windowAt(const QPoint& location) {
  QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr && modal->geometry().contains(location)) return modal;
  QWidget* found = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible() || !window->geometry().contains(location)) continue;
    if (found == nullptr || window->windowFlags().testFlag(Qt::WindowStaysOnTopHint)) found = window;
  }
  return found;
}

void toolkitMouse(QEvent::Type type, const QPoint& location) {
  QWidget* window = windowAt(location);
  ASSERT_NE(window, nullptr);
  const QPoint local = window->mapFromGlobal(location);
  if (type == QEvent::MouseButtonPress) QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, local);
  if (type == QEvent::MouseButtonRelease)
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, local);
  if (type == QEvent::MouseMove) QTest::mouseMove(window->windowHandle(), local);
}

}  // namespace

void UserInput::press(const QPoint& location) {
  if (hasServer())
    return server(at(location) + QStringList{QStringLiteral("mousedown"), QStringLiteral("1")});
  toolkitMouse(QEvent::MouseButtonPress, location);
}

void UserInput::release(const QPoint& location) {
  if (hasServer()) return server(at(location) + QStringList{QStringLiteral("mouseup"), QStringLiteral("1")});
  toolkitMouse(QEvent::MouseButtonRelease, location);
}

void UserInput::drag(const QPoint& from, const QPoint& to) {
  press(from);
  for (const QPoint& step : {(from + to) / 2, to}) {
    if (hasServer())
      server(at(step));
    else
      toolkitMouse(QEvent::MouseMove, step);
  }
  release(to);
}

void UserInput::type(const QString& keys) {
  if (hasServer()) return server({QStringLiteral("key"), keys});
  const QKeyCombination combination =
      QKeySequence(QString(keys).replace(QStringLiteral("comma"), QStringLiteral(",")))[0];
  QWidget* receiver = QApplication::focusWidget();
  if (receiver == nullptr) receiver = QApplication::activeWindow();
  ASSERT_NE(receiver, nullptr);
  QTest::keyClick(receiver->window()->windowHandle(), combination.key(), combination.keyboardModifiers());
}

}  // namespace touchpanel::testing
