#include "providers/qt/AlertTexts.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace touchpanel {
namespace {

// What the logic shows, so that the translation tool sees it.
[[maybe_unused]] constexpr const char* kTexts[] = {
    QT_TRANSLATE_NOOP("Alert", "Warning"),
    QT_TRANSLATE_NOOP("Alert", "Error"),
    QT_TRANSLATE_NOOP("Alert", "OK"),
    QT_TRANSLATE_NOOP("Alert", "Not found touch device."),
    QT_TRANSLATE_NOOP("Alert", "To get the device parameters failed, please try again."),
};

}  // namespace

QString alertText(std::string_view english) {
  const auto text = QByteArray(english.data(), static_cast<qsizetype>(english.size()));
  // The one text with a number in it; catalogues hold it with a place for the number.
  static const QRegularExpression unableToOpen(QStringLiteral("^Unable to open device: ([0-9a-f]+)\\.$"));
  if (const auto match = unableToOpen.match(QString::fromUtf8(text)); match.hasMatch())
    return QCoreApplication::translate("Alert", "Unable to open device: %1.").arg(match.captured(1));
  return QCoreApplication::translate("Alert", text.constData());
}

}  // namespace touchpanel
