#include "providers/qt/QtStatusLine.h"

#include <QCoreApplication>

namespace touchpanel {

void QtStatusLine::show(const StatusMessage& message) {
  QString text =
      QCoreApplication::translate("StatusLine", statusTemplate(message.text), nullptr, message.count);
  text.replace(QStringLiteral("%1"), QString::fromStdString(message.device));
  area_.setOutcome(text);
}

}  // namespace touchpanel
