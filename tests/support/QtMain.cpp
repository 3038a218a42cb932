#include <QApplication>
#include <QLocale>

#include <gmock/gmock.h>

// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizer asks for this name.
/// The bus library keeps one buffer for the life of the process.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libdbus-1.so\n"; }
// NOLINTEND(bugprone-reserved-identifier)

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  const QApplication application(argc, argv);
  // Texts and numbers are those of this language, wherever the tests run.
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  return RUN_ALL_TESTS();
}
