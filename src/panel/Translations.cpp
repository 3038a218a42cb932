#include "panel/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <cstring>

// A resource in a static library has to be asked for, outside any namespace.
static void embedCatalogues() { Q_INIT_RESOURCE(translations); }

namespace touchpanel {

Translations::Translations(const QLocale& locale) {
  embedCatalogues();
  if (!program_.load(locale, QStringLiteral("touchpanel"), QStringLiteral("_"),
                     QStringLiteral(":/translations")))
    return;
  // In the language that was found, so that no window is half in one language and half in another.
  if (toolkit_.load(QStringLiteral("qtbase_") + program_.language(),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&toolkit_);
  QCoreApplication::installTranslator(&program_);
}

Translations::~Translations() {
  QCoreApplication::removeTranslator(&program_);
  QCoreApplication::removeTranslator(&toolkit_);
}

// A text without forms for singular and plural is not found when a number is asked for.
QString translatedCount(const char* context, const char* english, int count) {
  return QCoreApplication::translate(context, english, nullptr,
                                     std::strstr(english, "%n") == nullptr ? -1 : count);
}

}  // namespace touchpanel
