#pragma once

#include <QWidget>

class QAbstractButton;

namespace touchpanel {

/// A small drawing of what a finger does in one touch mode, in the palette's colours. A press on it chooses
/// the mode.
class TouchModeDrawing final : public QWidget {
 public:
  explicit TouchModeDrawing(QWidget* parent = nullptr) : QWidget(parent) {}

  /// Row of the touch mode, 0 to 3.
  void setMode(int mode) { mode_ = mode; }
  /// What a press clicks; not owned.
  void setChoice(QAbstractButton& choice) { choice_ = &choice; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  int mode_ = 0;
  QAbstractButton* choice_ = nullptr;
};

/// Why the list has no touchscreens.
enum class ListState {
  Empty,        ///< there is none
  Waiting,      ///< one is being opened or read
  Refused,      ///< there is one that may not be used
  ServiceDown,  ///< the driver service does not answer
};

/// A screen with the state of a list without touchscreens: a target, a clock, a lock, or a broken line.
class EmptyDrawing final : public QWidget {
 public:
  explicit EmptyDrawing(QWidget* parent = nullptr) : QWidget(parent) {}
  void show(ListState state);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ListState state_ = ListState::Empty;
};

/// A touchscreen as it stands: calibrated, not calibrated, or with a driver that does not answer.
class FactsDrawing final : public QWidget {
 public:
  enum class State { Calibrated, Uncalibrated, NoAnswer };
  explicit FactsDrawing(QWidget* parent = nullptr) : QWidget(parent) {}
  void show(State state);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  State state_ = State::Uncalibrated;
};

}  // namespace touchpanel

// Designer's files know no namespaces.
using touchpanel::EmptyDrawing;
using touchpanel::TouchModeDrawing;
