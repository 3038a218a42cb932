#include "demo/tour/Pictures.h"

#include <QApplication>
#include <QPixmap>
#include <QScreen>

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

void Pictures::takeInEveryTheme(const std::string& name, QWidget& window) {
  takeInBothThemes(name);
  const QPalette before = QApplication::palette();
  QApplication::setPalette(highContrastPalette());
  take(name + "-contrast");
  QApplication::setPalette(before);
  QPixmap twice(window.size() * 2);
  twice.setDevicePixelRatio(2);
  window.render(&twice);
  const QString file = nextFile(name + "-2x");
  if (!twice.save(file)) throw StepFailed("cannot write " + file.toStdString());
}

QString Pictures::nextFile(const std::string& name) {
  return QStringLiteral("%1/%2-%3.png")
      .arg(directory_)
      .arg(++taken_, 2, 10, QLatin1Char('0'))
      .arg(QString::fromStdString(name));
}

void Pictures::takeAsItIs(const std::string& name) {
  const QString file = nextFile(name);
  if (!QGuiApplication::primaryScreen()->grabWindow(0).save(file))
    throw StepFailed("cannot write " + file.toStdString());
}

}  // namespace touchpanel::demo
