#include "providers/qt/QtApplication.h"

#include <QCoreApplication>

namespace touchpanel {

void QtApplication::exit(int status) {
  if (isEnding_) return;  // the first reason to end is the one that counts
  isEnding_ = true;
  status_ = status;
  QCoreApplication::exit(status);
}

int QtApplication::run() {
  if (!isEnding_) exit(QCoreApplication::exec());
  return status_;
}

}  // namespace touchpanel
