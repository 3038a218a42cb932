#include "panel/StatusArea.h"

#include "panel/Translations.h"
#include "providers/qt/ViewSurface.h"

namespace touchpanel {

void StatusArea::setOutcome(const QString& text) {
  outcome_ = text;
  show();
}

void StatusArea::setWait(const QString& text) {
  wait_ = text;
  show();
  label_.repaint();
}

void TranslatedStatusLine::show(const StatusMessage& message) {
  QString text = translatedCount("StatusLine", message.text.data(), message.count);
  text.replace(QStringLiteral("%1"), QString::fromStdString(message.device));
  area_.setOutcome(text);
}

void TranslatedWaitNotice::waitingFor(const WaitMessage& message) {
  const QString text = translatedCount("WaitNotice", message.text.data(), message.attempt);
  cursor_.setBusy(true);
  if (auto* surface = ViewSurface::shown()) return surface->setBanner(text);
  if (startUp_.isVisible()) return startUp_.setText(text);
  area_.setWait(text);
}

void TranslatedWaitNotice::done() {
  cursor_.setBusy(false);
  if (auto* surface = ViewSurface::shown()) surface->setBanner({});
  area_.setWait({});
}

}  // namespace touchpanel
