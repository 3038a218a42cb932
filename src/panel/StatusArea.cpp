#include "panel/StatusArea.h"

namespace touchpanel {

void StatusArea::setOutcome(const QString& text) {
  outcome_ = text;
  show();
}

void StatusArea::setWait(const QString& text) {
  wait_ = text;
  show();
  label_.repaint();
}

void StatusArea::show() { label_.setText(wait_.isEmpty() ? outcome_ : wait_); }

}  // namespace touchpanel
