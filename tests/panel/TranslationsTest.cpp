#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "panel/QtStatusLine.h"
#include "panel/Translations.h"
#include "platform/WaitNotice.h"
#include "providers/qt/AlertTexts.h"

namespace touchpanel {
namespace {

QString statusIn(const char* locale, const StatusMessage& message) {
  const Translations translations{QLocale(QString::fromUtf8(locale))};
  QLabel label;
  StatusArea area(label);
  QtStatusLine(area).show(message);
  return label.text();
}

TEST(Translations, TellStatusWithAndWithoutANumberInEveryLanguage) {
  const StatusMessage connected{.text = StatusText::DeviceConnected, .device = "IR-1"};
  EXPECT_EQ(statusIn("en", connected), "IR-1 was connected.");
  EXPECT_EQ(statusIn("de_AT", connected), "IR-1 wurde angeschlossen.");
  EXPECT_EQ(statusIn("zh_CN", connected), "IR-1 已连接。");
  EXPECT_EQ(statusIn("fr", connected), "IR-1 was connected.");

  const auto saved = [](int count) {
    return StatusMessage{.text = StatusText::SettingsSaved, .device = {}, .count = count};
  };
  EXPECT_EQ(statusIn("en", saved(1)), "Settings were sent to 1 touchscreen and saved.");
  EXPECT_EQ(statusIn("en", saved(3)), "Settings were sent to 3 touchscreens and saved.");
  EXPECT_EQ(statusIn("de", saved(1)), "Die Einstellungen wurden an 1 Touchscreen gesendet und gespeichert.");
  EXPECT_EQ(statusIn("de", saved(0)), "Die Einstellungen wurden an 0 Touchscreens gesendet und gespeichert.");
  EXPECT_EQ(statusIn("zh_CN", saved(3)), "设置已发送到 3 个触摸屏并已保存。");
}

TEST(Translations, ReachAlertsWaitsAndTheToolkitsOwnDialogs) {
  const Translations translations{QLocale(QStringLiteral("de"))};
  EXPECT_EQ(alertText("Unable to open device: e00002c5."), "Das Gerät kann nicht geöffnet werden: e00002c5.");
  EXPECT_EQ(translatedCount("WaitNotice", waitTemplate(WaitText::TouchscreenInUse), 7),
            "Der Touchscreen lässt sich noch nicht öffnen, neuer Versuch (7 von 50)...");
  const QDialogButtonBox box(QDialogButtonBox::Cancel);
  EXPECT_EQ(box.button(QDialogButtonBox::Cancel)->text().remove(u'&'), "Abbrechen");
}

TEST(Translations, LeaveNothingBehind) {
  { const Translations translations{QLocale(QStringLiteral("de"))}; }
  EXPECT_EQ(alertText("Error"), "Error");
}

/// What the environment says is read once in a process: the runs of this test differ in theirs.
TEST(Translations, FollowTheOrderOfTheUsersLanguages) {
  const auto expected = qEnvironmentVariable("EXPECTED_ERROR_TITLE");
  if (expected.isEmpty()) GTEST_SKIP() << "only in runs with an environment of their own";
  const Translations translations{QLocale::system()};
  EXPECT_EQ(alertText("Error"), expected);
}

}  // namespace
}  // namespace touchpanel
