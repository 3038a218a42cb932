#include "panel/StatusArea.h"

#include "panel/Translations.h"
#include "platform/ShowableText.h"
#include "providers/qt/SpokenLabels.h"
#include "providers/qt/ViewSurface.h"

namespace touchpanel {

void StatusArea::setOutcome(const QString& text, bool canRepeat) {
  outcome_ = text;
  label_.clear();  // the same outcome once more is news
  canRepeat_ = canRepeat;
  show();
}

void StatusArea::show() {
  const QString text = wait_.isEmpty() ? outcome_ : wait_;
  const bool isNew = text != label_.text();
  label_.setText(text);
  if (isNew) announce(label_);
  repeat_.setVisible(canRepeat_ && wait_.isEmpty());
}

void StatusArea::setWait(const QString& text) {
  wait_ = text;
  show();
  label_.repaint();
  if (onWait) onWait(text);
}

QString translatedStatus(const StatusMessage& message) {
  QString text = translatedCount("StatusLine", message.text.data(), message.count);
  const QString device = QString::fromStdString(showableText(message.device));
  if (!message.reason.empty())
    text.replace(QStringLiteral("%2"), translatedCount("StatusLine", message.reason.data(), message.count));
  text.replace(QStringLiteral("%1"), device);
  return text;
}

void TranslatedStatusLine::show(const StatusMessage& message) {
  area_.setOutcome(translatedStatus(message), message.canRepeat);
}

void TranslatedWaitNotice::waitingFor(const WaitMessage& message) {
  QString text = translatedCount("WaitNotice", message.text.data(), message.attempt);
  if (!message.reason.empty())
    text.replace(QStringLiteral("%2"), translatedCount("StatusLine", message.reason.data(), 0));
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
