#pragma once

#include <QString>
#include <QWidget>
#include <string>

namespace touchpanel::demo {

/// PNGs of the whole screen as the X server shows it, numbered in the order in which they were taken.
class Pictures {
 public:
  /// `directory` must exist.
  explicit Pictures(QString directory) : directory_(std::move(directory)) {}

  /// Has every window painted that is waiting for it, and writes DIRECTORY/NN-name.png. StepFailed when that
  /// cannot be written.
  void take(const std::string& name);
  /// The same twice, as NAME-light and NAME-dark.
  void takeInBothThemes(const std::string& name);
  /// The same as NAME-light, NAME-dark and NAME-contrast; and of `window` alone at double density, as NAME-2x.
  void takeInEveryTheme(const std::string& name, QWidget& window);
  /// The same as take() without serving any event, for while the program blocks.
  void takeAsItIs(const std::string& name);

 private:
  QString nextFile(const std::string& name);

  QString directory_;
  int taken_ = 0;
};

}  // namespace touchpanel::demo
