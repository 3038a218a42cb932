#include "panel/ProgramIdentity.h"

#include <QGuiApplication>
#include <QIcon>

// A resource in a static library has to be asked for, outside any namespace.
static void embedIcons() { Q_INIT_RESOURCE(icons); }

namespace touchpanel {

void identifyProgram() {
  embedIcons();
  QIcon icon;
  for (const int size : {32, 64, 128, 256}) icon.addFile(QStringLiteral(":/icons/%1.png").arg(size));
  QGuiApplication::setWindowIcon(icon);
  QGuiApplication::setDesktopFileName(QStringLiteral("com.varnexo.touchpanel"));
}

}  // namespace touchpanel
