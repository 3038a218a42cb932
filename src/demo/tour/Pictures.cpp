#include "demo/tour/Pictures.h"

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

#include "demo/tour/StepFailed.h"
#include "panel/Themes.h"

namespace touchpanel::demo {

void Pictures::take(const std::string& name) {
  QCoreApplication::sendPostedEvents();
  for (auto* window : QApplication::topLevelWidgets())
    if (window->isVisible()) window->repaint();
  takeAsItIs(name);
}

void Pictures::takeInBothThemes(const std::string& name) {
  take(name + "-light");
  const QPalette before = QApplication::palette();
  QApplication::setPalette(darkPalette());
  take(name + "-dark");
  QApplication::setPalette(before);
}

void Pictures::takeAsItIs(const std::string& name) {
  const QString file = QStringLiteral("%1/%2-%3.png")
                           .arg(directory_)
                           .arg(++taken_, 2, 10, QLatin1Char('0'))
                           .arg(QString::fromStdString(name));
  if (!QGuiApplication::primaryScreen()->grabWindow(0).save(file))
    throw StepFailed("cannot write " + file.toStdString());
}

}  // namespace touchpanel::demo
