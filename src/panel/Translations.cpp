#include "panel/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <cstring>

// A resource in a static library has to be asked for, outside any namespace.
static void embedCatalogues() { Q_INIT_RESOURCE(translations); }

namespace touchpanel {
namespace {

// The texts of the logic's alerts, so that the translation tool sees it.
[[maybe_unused]] constexpr const char* kTexts[] = {
    QT_TRANSLATE_NOOP("Alert", "Warning"),
    QT_TRANSLATE_NOOP("Alert", "Error"),
    QT_TRANSLATE_NOOP("Alert", "OK"),
    QT_TRANSLATE_NOOP("Alert", "Not found touch device."),
    QT_TRANSLATE_NOOP("Alert", "To get the device parameters failed, please try again."),
};

}  // namespace

Translations::Translations(const QLocale& locale) {
  embedCatalogues();
  const auto load = [this](const QLocale& wanted) {
    return program_.load(wanted, QStringLiteral("touchpanel"), QStringLiteral("_"),
                         QStringLiteral(":/translations"));
  };
  if (!load(locale) && !load(QLocale(QLocale::English))) return;
  // In the language that was found, so that no window is half in one language and half in another.
  if (toolkit_.load(QStringLiteral("qtbase_") + program_.language(),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&toolkit_);
  QCoreApplication::installTranslator(&program_);
}

// A text without forms for singular and plural is not found when a number is asked for.
QString translatedCount(const char* context, const char* english, int count) {
  return QCoreApplication::translate(context, english, nullptr,
                                     std::strstr(english, "%n") == nullptr ? -1 : count);
}

QString alertText(std::string_view english) {
  const auto text = QByteArray(english.data(), static_cast<qsizetype>(english.size()));
  // The one text with a number in it; catalogues hold it with a place for the number.
  static const QRegularExpression unableToOpen(QStringLiteral("^Unable to open device: ([0-9a-f]+)\\.$"));
  if (const auto match = unableToOpen.match(QString::fromUtf8(text)); match.hasMatch())
    return QCoreApplication::translate("Alert", "Unable to open device: %1.").arg(match.captured(1));
  return QCoreApplication::translate("Alert", text.constData());
}

}  // namespace touchpanel
