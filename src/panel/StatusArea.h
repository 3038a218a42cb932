#pragma once

#include <QLabel>

namespace touchpanel {

/// The main window's line of text: what was done last or, while the program blocks, what it waits for.
class StatusArea {
 public:
  explicit StatusArea(QLabel& label) : label_(label) {}
  void setOutcome(const QString& text);
  /// Drawn at once, without the event loop. An empty text ends the wait.
  void setWait(const QString& text);

 private:
  void show();

  QLabel& label_;
  QString outcome_;
  QString wait_;
};

}  // namespace touchpanel
