#pragma once

#include <QLabel>
#include <functional>

#include "panel/StartUpWindow.h"
#include "platform/StatusLine.h"
#include "platform/WaitNotice.h"
#include "providers/qt/QtCursor.h"

namespace touchpanel {

/// The main window's line of text: what was done last or, while the program blocks, what it waits for.
class StatusArea {
 public:
  /// `repeat` is shown beside an outcome that can be repeated.
  StatusArea(QLabel& label, QWidget& repeat) : label_(label), repeat_(repeat) {}
  void setOutcome(const QString& text, bool canRepeat);
  /// Drawn at once, without the event loop. An empty text ends the wait.
  void setWait(const QString& text);
  /// Called with each wait, and with an empty text when it ends.
  std::function<void(const QString&)> onWait;

 private:
  void show();

  QLabel& label_;
  QWidget& repeat_;
  QString outcome_;
  bool canRepeat_ = false;
  QString wait_;
};

/// `message` in the user's language.
QString translatedStatus(const StatusMessage& message);

/// The last thing done, in the user's language.
class TranslatedStatusLine final : public StatusLine {
 public:
  explicit TranslatedStatusLine(StatusArea& area) : area_(area) {}
  void show(const StatusMessage& message) override;

 private:
  StatusArea& area_;
};

/// What the program waits for, wherever the user is looking: on the full-screen view, on the start-up window
/// or on the status line; and a busy cursor over all of them.
class TranslatedWaitNotice final : public WaitNotice {
 public:
  TranslatedWaitNotice(QtCursor& cursor, StatusArea& area, StartUpWindow& startUp)
      : cursor_(cursor), area_(area), startUp_(startUp) {}
  void waitingFor(const WaitMessage& message) override;
  void done() override;

 private:
  QtCursor& cursor_;
  StatusArea& area_;
  StartUpWindow& startUp_;
};

}  // namespace touchpanel
