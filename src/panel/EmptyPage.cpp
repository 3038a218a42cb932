#include "panel/EmptyPage.h"

#include "panel/StatusArea.h"
#include "panel/Translations.h"
#include "ui_MainWindow.h"

namespace touchpanel {

EmptyPage::EmptyPage(MainWindowWidget& window)
    : window_(window), title_(window.ui().lbEmptyTitle->text()), hint_(window.ui().lbEmptyHint->text()) {
  auto& title = *window.ui().lbEmptyTitle;
  title.setTextFormat(Qt::PlainText);
  title.setWordWrap(true);
}

void EmptyPage::show(const ListNotice& notice) {
  setTexts(translatedStatus(notice.why), alertText(notice.advice));
}

void EmptyPage::clear() { setTexts(title_, hint_); }

void EmptyPage::setTexts(const QString& title, const QString& hint) {
  auto& ui = window_.ui();
  ui.lbEmptyTitle->setText(title);
  ui.lbEmptyHint->setText(hint);
  if (ui.emptyPage->isVisible()) ui.emptyPage->repaint();
}

}  // namespace touchpanel
