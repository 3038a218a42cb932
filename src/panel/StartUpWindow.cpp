#include "panel/StartUpWindow.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

namespace touchpanel {

StartUpWindow::StartUpWindow() : message_(new QLabel) {
  setFrameStyle(QFrame::StyledPanel | QFrame::Plain);  // its only border where there is no window manager
  setWindowTitle(QCoreApplication::translate("StartUpWindow", "Touch Panel"));
  auto* title = new QLabel(windowTitle());
  QFont large = title->font();
  large.setPointSize(18);
  large.setBold(true);
  title->setFont(large);
  message_->setText(QCoreApplication::translate("StartUpWindow", "Looking for touchscreens..."));
  message_->setWordWrap(true);
  message_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  message_->setMinimumHeight(2 * message_->fontMetrics().lineSpacing());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(28, 24, 28, 24);
  column->setSpacing(12);
  column->addWidget(title);
  column->addWidget(message_);
  setFixedSize(440, 140);
}

void StartUpWindow::open() {
  if (const auto* screen = QGuiApplication::primaryScreen())
    move(screen->geometry().center() - rect().center());
  show();
  // Until the window system has mapped the window nothing can be drawn on it.
  const QDeadlineTimer patience(500);
  while (!windowHandle()->isExposed() && !patience.hasExpired())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
  repaint();
}

void StartUpWindow::setText(const QString& text) {
  message_->setText(text);
  repaint();
}

}  // namespace touchpanel
