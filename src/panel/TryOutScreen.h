#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "panel/TryOutTouches.h"

namespace touchpanel {

/// The try-out on the whole of a screen, edges and corners included, with its result large enough to be read
/// from a distance. Escape, F11 or its button ends it.
class TryOutScreen final : public QWidget {
 public:
  /// `owner` gets the keyboard back; it must outlive this.
  explicit TryOutScreen(QWidget& owner);

  /// Covers `screen` and begins with the first point.
  void open(QScreen& screen);
  const TryOut& tryOut() const { return touches_.tryOut(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* makeTexts();
  void scaleTexts();
  void showTexts();

  QWidget& owner_;
  TryOutSurface* surface_;
  QWidget* texts_;
  QLabel* hint_;
  QLabel* count_;
  QLabel* mean_;
  QLabel* largest_;
  QLabel* unusual_;
  QLabel* note_;
  QPushButton* end_;
  TryOutTouches touches_;
};

}  // namespace touchpanel
