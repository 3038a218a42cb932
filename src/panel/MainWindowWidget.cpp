#include "panel/MainWindowWidget.h"

#include <QCloseEvent>
#include <QCoreApplication>

#include "ui_MainWindow.h"

namespace touchpanel {
namespace {

/// Gives the texts of the empty list their place in the catalogues, beside those of the window.
class Texts {
  Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

}  // namespace

MainWindowWidget::MainWindowWidget() : ui_(std::make_unique<Ui::MainWindow>()) {
  ui_->setupUi(this);
  showRows(0);
}

MainWindowWidget::~MainWindowWidget() = default;

void MainWindowWidget::showRows(int count, ListState state) {
  state_ = state;
  describeEmptyList(state);
  ui_->deviceStack->setCurrentWidget(count > 0 ? ui_->tablePage : ui_->emptyPage);
}

void MainWindowWidget::showWait(const QString& text) {
  if (!ui_->emptyPage->isVisible()) return;
  describeEmptyList(text.isEmpty() ? state_ : ListState::Waiting, text);
  ui_->emptyPage->repaint();
}

void MainWindowWidget::setNotice(ListState state, const QString& title, const QString& hint) {
  noticeState_ = state;
  notice_ = {title, hint};
  describeEmptyList(state_);
  if (ui_->emptyPage->isVisible()) ui_->emptyPage->repaint();
}

void MainWindowWidget::describeEmptyList(ListState state, const QString& wait) {
  const bool hasNotice = state != ListState::Waiting && !notice_.title.isEmpty();
  if (hasNotice) state = noticeState_;
  const auto words = [&]() -> Words {
    if (hasNotice) return notice_;
    switch (state) {
      case ListState::Waiting:
        return {Texts::tr("One moment"), wait};
      case ListState::Refused:
        return {Texts::tr("Touchscreens may not be used"),
                Texts::tr("You are not permitted to use them. Log in at this machine itself, or ask its "
                          "administrator for access.")};
      case ListState::ServiceDown:
        return {Texts::tr("The touch driver service does not answer"),
                Texts::tr("Touchscreens are listed when it runs again. Whoever looks after this machine can "
                          "start it with \"systemctl start touchdriverd\".")};
      case ListState::Empty:
        break;
    }
    return {Texts::tr("No touchscreen found"),
            Texts::tr("Plug a touchscreen in. It appears here after a few seconds.")};
  }();
  ui_->emptyDrawing->show(state);
  ui_->lbEmptyTitle->setText(words.title);
  ui_->lbEmptyHint->setText(words.hint);
}

void MainWindowWidget::closeEvent(QCloseEvent* event) { event->setAccepted(!mayClose || mayClose()); }

}  // namespace touchpanel
