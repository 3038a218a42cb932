#include "providers/qt/QtCursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace touchpanel {

QtCursor::~QtCursor() {
  hidden_ = busy_ = false;
  apply();
}

void QtCursor::hide() {
  hidden_ = true;
  apply();
}

void QtCursor::show() {
  hidden_ = false;
  apply();
}

void QtCursor::setBusy(bool busy) {
  busy_ = busy;
  apply();
}

void QtCursor::setPlain(bool plain) {
  plain_ = plain;
  apply();
}

void QtCursor::apply() {
  if (overridden_) QGuiApplication::restoreOverrideCursor();
  overridden_ = !plain_ && (hidden_ || busy_);
  if (overridden_) QGuiApplication::setOverrideCursor(QCursor(busy_ ? Qt::WaitCursor : Qt::BlankCursor));
}

}  // namespace touchpanel
