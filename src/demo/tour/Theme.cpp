#include "demo/tour/Theme.h"

#include <QApplication>

#include "panel/Themes.h"

namespace touchpanel::demo {

DarkTheme::DarkTheme() : before_(QApplication::palette()) { QApplication::setPalette(darkPalette()); }

DarkTheme::~DarkTheme() { QApplication::setPalette(before_); }

}  // namespace touchpanel::demo
