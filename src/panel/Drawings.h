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

/// A screen with its plug pulled, for a list without touchscreens.
class EmptyDrawing final : public QWidget {
 public:
  explicit EmptyDrawing(QWidget* parent = nullptr) : QWidget(parent) {}

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace touchpanel

// Designer's files know no namespaces.
using touchpanel::EmptyDrawing;
using touchpanel::TouchModeDrawing;
