#include <QApplication>
#include <QLocale>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  const QApplication application(argc, argv);
  // Texts and numbers are those of this language, wherever the tests run.
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  return RUN_ALL_TESTS();
}
