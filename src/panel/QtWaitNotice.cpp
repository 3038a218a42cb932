#include "panel/QtWaitNotice.h"

#include "panel/Translations.h"
#include "providers/qt/ViewSurface.h"

namespace touchpanel {

void QtWaitNotice::waitingFor(const WaitMessage& message) {
  const QString text = translatedCount("WaitNotice", waitTemplate(message.text), message.attempt);
  cursor_.setBusy(true);
  if (auto* surface = ViewSurface::shown()) return surface->setBanner(text);
  if (startUp_.isVisible()) return startUp_.tell(text);
  area_.setWait(text);
}

void QtWaitNotice::done() {
  cursor_.setBusy(false);
  if (auto* surface = ViewSurface::shown()) surface->setBanner({});
  area_.setWait({});
}

}  // namespace touchpanel
