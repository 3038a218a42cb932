#include "panel/QtStatusLine.h"

#include "panel/Translations.h"

namespace touchpanel {

void QtStatusLine::show(const StatusMessage& message) {
  QString text = translatedCount("StatusLine", statusTemplate(message.text), message.count);
  text.replace(QStringLiteral("%1"), QString::fromStdString(message.device));
  area_.setOutcome(text);
}

}  // namespace touchpanel
