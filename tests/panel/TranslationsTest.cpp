#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProcess>
#include <QPushButton>

#include <gtest/gtest.h>

#include "panel/StatusArea.h"
#include "panel/Translations.h"

namespace touchpanel {
namespace {

TEST(Translations, GiveTheStatusWithAndWithoutANumberInEveryLanguage) {
  const char* connected = "%1 was connected.";
  const char* saved = "Settings were sent to %n touchscreen(s) and saved.";
  const std::tuple<const char*, const char*, int, const char*> cases[] = {
      {"de_AT", connected, 0, "IR-1 wurde angeschlossen."},
      {"zh_CN", connected, 0, "IR-1 已连接。"},
      {"fr", connected, 0, "IR-1 was connected."},
      {"en", saved, 1, "Settings were sent to 1 touchscreen and saved."},
      {"en", saved, 3, "Settings were sent to 3 touchscreens and saved."},
      {"C", saved, 1, "Settings were sent to 1 touchscreen and saved."},
      {"fr", saved, 3, "Settings were sent to 3 touchscreens and saved."},
      {"de", saved, 1, "Die Einstellungen wurden an 1 Touchscreen gesendet und gespeichert."},
      {"zh_CN", saved, 3, "设置已发送到 3 个触摸屏并已保存。"}};
  for (const auto& [locale, text, count, expected] : cases) {
    const Translations translations{QLocale(QString::fromUtf8(locale))};
    QLabel label;
    QWidget repeat;
    StatusArea area(label, repeat);
    TranslatedStatusLine(area).show({text, "IR-1", count});
    EXPECT_EQ(label.text(), expected);
  }
}

TEST(Translations, ReachAlertsAndTheToolkitsOwnDialogs) {
  const Translations translations{QLocale(QStringLiteral("de"))};
  EXPECT_EQ(alertText("Unable to open device: e00002c5."), "Das Gerät kann nicht geöffnet werden: e00002c5.");
  const QDialogButtonBox box(QDialogButtonBox::Cancel);
  EXPECT_EQ(box.button(QDialogButtonBox::Cancel)->text().remove(u'&'), "Abbrechen");
}

TEST(Translations, FollowTheOrderOfTheUsersLanguages) {
  // What the environment says is read once in a process: the cases run in processes of their own.
  if (const auto expected = qEnvironmentVariable("EXPECTED_ERROR_TITLE"); !expected.isEmpty()) {
    {
      const Translations translations{QLocale::system()};
      EXPECT_EQ(alertText("Error"), expected);
    }
    EXPECT_EQ(alertText("Error"), "Error") << "nothing is left behind";
    return;
  }
  const std::pair<const char*, const char*> cases[] = {
      {"de:en", "Fehler"}, {"en:de", "Error"}, {"zh_CN", "错误"}, {"fr:de", "Fehler"}};
  for (const auto& [languages, expected] : cases) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "en_US.UTF-8");
    environment.insert("LANGUAGE", languages);
    environment.insert("EXPECTED_ERROR_TITLE", expected);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=Translations.FollowTheOrder*"});
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
  }
}

}  // namespace
}  // namespace touchpanel
