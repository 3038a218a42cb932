#pragma once

#include <QWidget>
#include <functional>

#include "panel/TryOutPicture.h"

namespace touchpanel {

/// A surface to touch. It passes on the pointer input that the platform delivers, touches of a single finger
/// among it, and shows the picture that it is given.
class TryOutSurface final : public QWidget {
 public:
  explicit TryOutSurface(QWidget* parent = nullptr);

  void setPicture(TryOutPicture picture);
  const TryOutPicture& picture() const { return picture_; }

  /// In points of the surface, y downwards. A finger that rests arrives as a right button, once it has rested.
  std::function<void(QPointF, bool wasHeld)> onPress;
  std::function<void(QPointF)> onMove, onRelease;
  /// The touch under way does not count: the surface was left.
  std::function<void()> onCancel;
  /// The surface came up or has another size.
  std::function<void()> onPlaced;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  TryOutPicture picture_;
};

}  // namespace touchpanel

using touchpanel::TryOutSurface;  // Designer's files know no namespaces
