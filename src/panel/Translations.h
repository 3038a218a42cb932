#pragma once

#include <QLocale>
#include <QTranslator>
#include <string_view>

namespace touchpanel {

/// The program's texts and the toolkit's own in the user's language, for as long as this lives. Needs a
/// QCoreApplication that outlives it; windows made before do not change their language.
class Translations {
 public:
  /// Takes the first of the languages of `locale` that there is a catalogue for, else English. The default is
  /// the user's choice: that of the system, which the environment's LANGUAGE, LC_ALL and so on can overrule.
  explicit Translations(const QLocale& locale = QLocale());

 private:
  QTranslator toolkit_;
  QTranslator program_;
};

/// The translation of `english` in `context`, with `count` in the place of "%n" where there is one.
QString translatedCount(const char* context, const char* english, int count);

/// `english`, a text of an alert as the logic gives it, in the user's language. A text that is in no
/// catalogue is shown as it is.
QString alertText(std::string_view english);

}  // namespace touchpanel
