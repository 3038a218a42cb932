#include "demo/tour/EventWait.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include "demo/tour/StepFailed.h"

namespace touchpanel::demo {

void EventWait::until(const std::function<bool()>& condition, const std::string& what,
                      std::chrono::seconds limit) const {
  bool isOver = false;
  std::string inTheWay;
  QTimer timer;
  timer.setSingleShot(true);
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    isOver = true;
    // A panel with a loop of its own would keep us from ever coming back.
    if (auto* panel = QApplication::activeModalWidget(); panel != nullptr) {
      inTheWay = "; in the way: \"" + panel->windowTitle().toStdString() + "\"";
      panel->close();
    }
  });
  timer.start(limit);
  while (!condition()) {
    if (isOver)
      throw StepFailed(std::string("waited ")
                           .append(std::to_string(limit.count()))
                           .append(" s in vain for ")
                           .append(what)
                           .append(inTheWay));
    if (application_.isEnding()) throw StepFailed("the panel ended while waiting for " + what);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
}

}  // namespace touchpanel::demo
