#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "app/ScreenView.h"

namespace touchpanel {

/// The layout of the screens as a picture, each with its number, its name and the touchscreens on it. A click or an
/// arrow key marks one; Return puts the marked touchscreen there.
class ScreensPicture final : public QWidget {
 public:
  explicit ScreensPicture(QWidget* parent = nullptr) : QWidget(parent) {}

  void show(const ShownScreens& screens);
  std::function<void(std::size_t)> onMark;
  std::function<void()> onAssign;
  /// Where a screen is drawn, in the widget.
  QRectF areaOf(std::size_t screen) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  ShownScreens screens_;
};

}  // namespace touchpanel

// Designer's files know no namespaces.
using touchpanel::ScreensPicture;
