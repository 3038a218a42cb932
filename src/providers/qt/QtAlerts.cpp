#include "providers/qt/QtAlerts.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "providers/qt/ViewSurface.h"

namespace touchpanel {
namespace {

/// Makes a shield give way to `box` for as long as this lives: the box joins it above the window manager's
/// windows and has the keyboard.
class InFrontOfShield {
 public:
  explicit InFrontOfShield(QMessageBox& box) : shield_(ViewSurface::shown()) {
    if (shield_ == nullptr) return;
    hadKeyboard_ = QWidget::keyboardGrabber() == shield_;
    shield_->releaseKeyboard();
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.setWindowFlag(Qt::X11BypassWindowManagerHint,
                      shield_->windowFlags().testFlag(Qt::X11BypassWindowManagerHint));
    box.show();
    box.raise();
    box.activateWindow();
    if (hadKeyboard_) box.grabKeyboard();
  }
  ~InFrontOfShield() {
    if (shield_ == nullptr || !hadKeyboard_) return;
    shield_->activateWindow();
    shield_->grabKeyboard();
  }
  InFrontOfShield(const InFrontOfShield&) = delete;
  InFrontOfShield& operator=(const InFrontOfShield&) = delete;

 private:
  QPointer<ViewSurface> shield_;
  bool hadKeyboard_ = false;
};

/// The window that the user is looking at; without a window manager none may be active.
QWidget* windowInView() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible()) return window;
  return nullptr;
}

}  // namespace

void QtAlerts::show(std::string_view title, std::string_view message, std::string_view button,
                    std::string_view advice) {
  const CallbackGate::Closed closed(gate_);
  const QtCursor::Plain plain(cursor_);
  QMessageBox box(windowInView());
  prepare(box, title, message, advice);
  addButton(box, button, QMessageBox::AcceptRole);
  const InFrontOfShield inFront(box);
  box.exec();
}

bool QtAlerts::ask(std::string_view title, std::string_view question, std::string_view advice,
                   std::string_view yes, std::string_view no) {
  const CallbackGate::Closed closed(gate_);
  const QtCursor::Plain plain(cursor_);
  QMessageBox box(windowInView());
  prepare(box, title, question, advice);
  const auto* const accepting = addButton(box, yes, QMessageBox::AcceptRole);
  auto* const refusing = addButton(box, no, QMessageBox::RejectRole);
  box.setDefaultButton(refusing);
  box.setEscapeButton(refusing);
  const InFrontOfShield inFront(box);
  box.exec();
  return box.clickedButton() == accepting;
}

void QtAlerts::prepare(QMessageBox& box, std::string_view title, std::string_view message,
                       std::string_view advice) const {
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(translated_(title));
  box.setText(translated_(message));
  if (!advice.empty()) box.setInformativeText(translated_(advice));
}

QPushButton* QtAlerts::addButton(QMessageBox& box, std::string_view text, int role) const {
  auto* const button = box.addButton(translated_(text), static_cast<QMessageBox::ButtonRole>(role));
  button->setMinimumSize(96, 40);  // a finger's width
  return button;
}

}  // namespace touchpanel
