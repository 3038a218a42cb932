#pragma once

#include <QWidget>

class QAbstractButton;

namespace touchpanel {

/// A small drawing of what a finger does in one touch mode, in the palette's colours. A press on it chooses
/// the mode.
class TouchModeDrawing final : public QWidget {
 public:
  explicit TouchModeDrawing(QWidget* parent = nullptr);

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

}  // namespace touchpanel

using touchpanel::TouchModeDrawing;  // Designer's files know no namespaces
