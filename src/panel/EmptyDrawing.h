#pragma once

#include <QWidget>

namespace touchpanel {

/// A screen with its plug pulled, for a list without touchscreens.
class EmptyDrawing final : public QWidget {
 public:
  explicit EmptyDrawing(QWidget* parent = nullptr) : QWidget(parent) {}

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace touchpanel

using touchpanel::EmptyDrawing;  // Designer's files know no namespaces
